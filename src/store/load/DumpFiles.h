#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace FX_Algen::store::load {

/// A file of a dump in the making. It stands beside its later place and goes with the object unless it took
/// its name.
class DumpFile {
public:
    explicit DumpFile(const std::filesystem::path& path);
    ~DumpFile();
    DumpFile(const DumpFile&) = delete;
    DumpFile& operator=(const DumpFile&) = delete;

    const std::filesystem::path& Path() const noexcept { return path_; }
    /// The line being written.
    std::string& Line() { return buffer_; }
    void EndLine();
    /// Writes what is left; 53 where the disk did not take all of it.
    void Close();
    /// Takes its name.
    std::error_code Rename() noexcept;

private:
    void Flush();
    [[noreturn]] void Fail() const;

    std::filesystem::path path_;
    std::filesystem::path part_;
    std::ofstream out_;
    std::string buffer_;
};

/// All files of a dump. They take their names together when the last one is complete, so that a dump that
/// fails leaves an older one as it was.
class DumpFiles {
public:
    /// Makes the folder where it does not exist; 53 where that fails.
    explicit DumpFiles(std::filesystem::path folder);

    /// A new file; 53 where it cannot be written.
    DumpFile& Add(std::string_view name);
    /// A file of an earlier dump that has to go.
    void Remove(std::string_view name);
    /// Gives all files their names. Where that fails halfway, the error says which files are new.
    void Finish();

private:
    std::filesystem::path folder_;
    std::vector<std::unique_ptr<DumpFile>> files_;
    std::vector<std::filesystem::path> removed_;
};

}  // namespace FX_Algen::store::load
