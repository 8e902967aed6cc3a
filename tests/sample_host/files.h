// Files that a test writes for itself.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

// A folder that is there while the test runs. Its name is drawn by lot, because several builds may be tested at a time.
class Files {
public:
    Files()
        : folder_(std::filesystem::temp_directory_path()
                  / ("kardeno_sample_host_test_" + std::to_string(std::random_device{}())))
    {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    ~Files() { std::filesystem::remove_all(folder_); }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    std::string write(const char* name, const std::string& content) const
    {
        std::ofstream(folder_ / name, std::ios::binary) << content;
        return this->name(name);
    }
    std::string name(const char* file) const { return (folder_ / file).string(); }

private:
    std::filesystem::path folder_;
};
