#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "store/load/TableFile.h"

namespace FX_Algen::store::load {

/// Some rows of one of the files.
struct Portion {
    std::size_t File = 0;
    Batch Rows;
    std::uint64_t BytesDone = 0;  ///< of all files together
};

/// Reads files on a thread of its own, so that reading one portion and writing another overlap.
class Pipeline {
public:
    /// `files` must outlive the pipeline. Files that are not usable are passed over.
    explicit Pipeline(const std::vector<TableFile>& files);
    /// Ends the reading, finished or not.
    ~Pipeline();
    Pipeline(const Pipeline&) = delete;
    Pipeline& operator=(const Pipeline&) = delete;

    /// The next portion, file by file and row by row; none at the end. A failure of the reading is thrown
    /// here.
    std::optional<Portion> Next();

private:
    void Read();
    void ReadFiles();
    /// False where nobody wants more.
    bool Put(Portion portion);

    const std::vector<TableFile>& files_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Portion> ready_;
    std::exception_ptr failure_;
    bool finished_ = false;
    bool unwanted_ = false;
    std::thread reader_;  ///< last, so that it starts when all else stands
};

}  // namespace FX_Algen::store::load
