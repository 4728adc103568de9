#pragma once

#include <optional>
#include <string>

namespace vardel {

// A file that one running program has for itself. The claim is a locked file beside it, so that it
// outlives the file's being replaced, and ends with the program however that ends.
class FileClaim {
public:
    // Nothing when another program has the file, or the claim cannot be made.
    static std::optional<FileClaim> Take(const std::string& path);

    FileClaim(FileClaim&& other) noexcept;
    FileClaim& operator=(FileClaim&& other) noexcept;
    FileClaim(const FileClaim&) = delete;
    ~FileClaim();

    const std::string& Path() const { return path_; }

private:
    FileClaim(std::string path, int lock) : path_(std::move(path)), lock_(lock) {}
    void Release();

    std::string path_;
    int lock_ = -1;
};

}  // namespace vardel
