#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "Dialogue.h"

namespace FX_Algen::cli {

/// The installed program's `automate` as a process of its own, with its input and output as pipes. What is
/// still running at the end is killed.
class Program : public Dialogue {
public:
    Program();
    ~Program() override;
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Sends a line and does not wait for its answer.
    void Send(const std::string& request);
    /// The next line that it wrote; empty at the end of its output.
    std::string Read();
    /// Ends it as a power cut of the process would: nothing of it runs any more.
    void Kill();
    /// Nothing that it writes from now on is read: its writing fails.
    void StopReading() { out_.reset(); }
    /// Ends its input and waits for its end; the exit code, -1 where a signal ended it.
    int Finish();

protected:
    std::string Line(const std::string& request) override {
        Send(request);
        return Read();
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    int Wait();

    int process_ = -1;
    void (*formerSignal_)(int);  ///< what becomes of writing to a program that is gone
    std::unique_ptr<std::FILE, Close> in_;
    std::unique_ptr<std::FILE, Close> out_;
};

}  // namespace FX_Algen::cli
