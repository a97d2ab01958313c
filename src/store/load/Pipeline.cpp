#include "store/load/Pipeline.h"

namespace FX_Algen::store::load {
namespace {

/// Rows of a portion: enough to make the hand-over cheap, few enough to stay in the caches.
constexpr std::size_t PortionRows = 2000;
/// Portions that may wait: the reader is the quicker one and must not run ahead through the memory.
constexpr std::size_t MostWaiting = 8;

}  // namespace

Pipeline::Pipeline(const std::vector<TableFile>& files) : files_(files), reader_([this] { Read(); }) {}

Pipeline::~Pipeline() {
    {
        const std::lock_guard lock(mutex_);
        unwanted_ = true;
    }
    changed_.notify_all();
    reader_.join();
}

std::optional<Portion> Pipeline::Next() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !ready_.empty() || finished_; });
    if (ready_.empty()) {
        if (failure_) std::rethrow_exception(failure_);
        return std::nullopt;
    }
    Portion portion = std::move(ready_.front());
    ready_.pop_front();
    lock.unlock();
    changed_.notify_all();
    return portion;
}

bool Pipeline::Put(Portion portion) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ready_.size() < MostWaiting || unwanted_; });
    if (unwanted_) return false;
    ready_.push_back(std::move(portion));
    lock.unlock();
    changed_.notify_all();
    return true;
}

void Pipeline::Read() {
    std::exception_ptr failure;
    try {
        ReadFiles();
    } catch (...) {
        failure = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    failure_ = failure;
    finished_ = true;
    changed_.notify_all();
}

void Pipeline::ReadFiles() {
    std::uint64_t before = 0;
    for (std::size_t i = 0; i < files_.size(); ++i) {
        if (files_[i].Usable()) {
            TableFile::Rows rows(files_[i]);
            for (Portion portion; rows.Next(portion.Rows, PortionRows); portion = Portion{}) {
                portion.File = i;
                portion.BytesDone = before + rows.Position();
                if (!Put(std::move(portion))) return;
            }
        }
        before += files_[i].Bytes();
    }
}

}  // namespace FX_Algen::store::load
