#include "checked/registry.h"

#include "checked/address_table.h"

#include <stdlib.h>

namespace kardeno::checked {

namespace {

// The things of one kind, found by the block that the library gave them and by their own address. A value of the first
// table is 1 + the number of the thing while the block is in use, and 0 afterwards; one of the second is not 0 between
// adding and releasing.

struct Register {
    AddressTable byBlock;
    AddressTable byRecord;
    u32 count = 0;

    void add(const void* record, const void* block)
    {
        if (!block) return;
        ++count;
        if (u32* const number = byBlock.findOrAdd(block)) *number = count;
        if (u32* const number = byRecord.findOrAdd(record)) *number = count;
    }

    void release(const void* record, const void* block)
    {
        if (u32* const number = byBlock.find(block)) *number = 0;
        if (u32* const number = byRecord.find(record)) *number = 0;
    }

    // A block in use is good wherever its record lies now: hosts move their records.
    Standing standing(const void* record, const void* block) const
    {
        const u32* const ofBlock = byBlock.find(block);
        if (ofBlock) return *ofBlock ? Standing::good : Standing::released;
        const u32* const ofRecord = byRecord.find(record);
        return ofRecord && *ofRecord && block ? Standing::foreign : Standing::unknown;
    }

    i32 number(const void* block) const
    {
        const u32* const found = byBlock.find(block);
        return found ? static_cast<i32>(*found) - 1 : -1;
    }
};

constinit Register materials;
constinit Register faces;
constinit AddressTable ramps;

} // namespace

void rememberMaterial(const SceneMaterial& material)
{
    materials.add(&material, material.renderPrivate);
}

void rememberFace(const SceneFace& face)
{
    faces.add(&face, face.faceColour);
}

void forgetMaterial(const SceneMaterial& material)
{
    if (standingOf(material) == Standing::good) rememberRamp(material.renderPrivate->shadeRamp, 0);
    materials.release(&material, material.renderPrivate);
}

void forgetFace(const SceneFace& face)
{
    faces.release(&face, face.faceColour);
}

void rememberRamp(const void* ramp, u32 entries)
{
    if (u32* const found = ramps.findOrAdd(ramp)) *found = entries;
}

Standing standingOf(const SceneMaterial& material)
{
    return materials.standing(&material, material.renderPrivate);
}

Standing standingOf(const SceneFace& face)
{
    return faces.standing(&face, face.faceColour);
}

i32 numberOf(const SceneMaterial& material)
{
    return materials.number(material.renderPrivate);
}

u32 entriesOfRamp(const void* ramp)
{
    const u32* const found = ramps.find(ramp);
    return found ? *found : 0;
}

} // namespace kardeno::checked
