// A robot: a group with parts that move, in several levels of detail.
#pragma once

#include "sample_host/host/scene.h"

namespace sample_host {

// One tree of geometry for each level, nearest first. All robots draw these.
struct RobotLevels {
    std::vector<Object*> roots;
    std::vector<double> limits; // the distances up to which the levels are drawn, without the last level
    std::vector<int> polygons;  // of a whole robot
};
RobotLevels addRobotLevels(Scene& scene);

// A robot that marches on the spot, looking along Z. `lead` is how far its steps are ahead of those of others, from 0
// to 1. It has no geometry of its own: its tree of objects has the same shape as those of the levels.
void addRobot(Scene& scene, const RobotLevels& levels, const std::string& name, const Placement& place, double lead);

} // namespace sample_host
