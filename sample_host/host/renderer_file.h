// The renderer from its file: a dynamic library that is loaded at run time, as any host loads it. Nothing is linked
// with it; its functions are found by their names.
#pragma once

#include "sample_host/host/renderer_table.h"

#include <string>

namespace sample_host {

class RendererFile {
public:
    // Throws with a sentence that names the file when it cannot be loaded or lacks one of the functions.
    explicit RendererFile(const std::string& file);
    ~RendererFile();
    RendererFile(const RendererFile&) = delete;
    RendererFile& operator=(const RendererFile&) = delete;

    // Can be used as long as this object lives, which keeps the library loaded.
    const RendererTable& table() const { return table_; }

private:
    template <class Function>
    void find(Function& function, const char* name);
    void findAll();

    std::string file_;
    void* handle_;
    RendererTable table_{};
};

} // namespace sample_host
