#include "store/load/DumpFiles.h"

#include <utility>

#include "FX_Algen/Error.h"

namespace FX_Algen::store::load {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t Full = std::size_t{1} << 16U;

std::string Names(const std::vector<std::unique_ptr<DumpFile>>& files, std::size_t from, std::size_t to) {
    std::string out;
    for (std::size_t i = from; i < to; ++i)
        out += (out.empty() ? "" : ", ") + files[i]->Path().filename().string();
    return out.empty() ? "none" : out;
}

}  // namespace

DumpFile::DumpFile(const fs::path& path) : path_(path), part_(path.string() + ".part") {
    std::error_code failure;
    if (fs::is_directory(path_, failure))
        throw Error(ErrorNumber::FileNotFound,
                    "Dumping: the file cannot be written, a folder has its name: " + path_.string());
    out_.open(part_, std::ios::binary | std::ios::trunc);
    if (!out_) Fail();
    buffer_.reserve(Full + Full / 4);
}

DumpFile::~DumpFile() {
    out_.close();
    std::error_code ignored;
    fs::remove(part_, ignored);
}

void DumpFile::Fail() const {
    throw Error(ErrorNumber::FileNotFound, "Dumping: the file cannot be written: " + path_.string());
}

void DumpFile::EndLine() {
    buffer_ += '\n';
    if (buffer_.size() >= Full) Flush();
}

void DumpFile::Flush() {
    out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
}

void DumpFile::Close() {
    Flush();
    out_.close();
    if (!out_) Fail();
}

std::error_code DumpFile::Rename() noexcept {
    std::error_code failure;
    fs::rename(part_, path_, failure);
    return failure;
}

DumpFiles::DumpFiles(fs::path folder) : folder_(std::move(folder)) {
    std::error_code failure;
    fs::create_directories(folder_, failure);
    if (!fs::is_directory(folder_, failure))
        throw Error(ErrorNumber::FileNotFound, "Dumping: the folder cannot be made: " + folder_.string());
}

DumpFile& DumpFiles::Add(std::string_view name) {
    return *files_.emplace_back(std::make_unique<DumpFile>(folder_ / name));
}

void DumpFiles::Remove(std::string_view name) { removed_.push_back(folder_ / name); }

void DumpFiles::Finish() {
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const std::error_code failure = files_[i]->Rename();
        if (!failure) continue;
        throw Error(ErrorNumber::FileNotFound,
                    "Dumping: " + files_[i]->Path().string() + " cannot be replaced: " + failure.message() +
                        ". New are: " + Names(files_, 0, i) +
                        ". Not written are: " + Names(files_, i, files_.size()) + ".");
    }
    for (const auto& path : removed_) {
        std::error_code failure;
        fs::remove(path, failure);
        if (failure)
            throw Error(ErrorNumber::FileNotFound, "Dumping: all files are written, but " + path.string() +
                                                       " cannot be removed: " + failure.message() + ".");
    }
}

}  // namespace FX_Algen::store::load
