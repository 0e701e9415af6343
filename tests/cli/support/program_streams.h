#pragma once

#include <string>
#include <thread>

#include "support/descriptor.h"
#include "support/run_program.h"

namespace multirename {

/// The standard streams of one program, both their ends. A thread of its own writes and reads, so that whoever started
/// the program is free to wait for it.
class ProgramStreams {
public:
    /// Throws std::system_error.
    explicit ProgramStreams(const ProgramRun& run);
    ProgramStreams(const ProgramStreams&) = delete;
    ProgramStreams& operator=(const ProgramStreams&) = delete;
    ~ProgramStreams() { finish(); }

    /// In the child: makes the program's ends its descriptors 0 to 2, and a terminal among them the controlling one.
    /// Allocates nothing. False, with errno, on failure.
    [[nodiscard]] bool become_standard() const noexcept;

    /// In the parent, once the child has its ends: closes them here and begins to write and read.
    void begin();
    /// Waits until the program and all it started have closed their ends; `output` and `errors` are whole then.
    void finish();

    [[nodiscard]] const std::string& output() const noexcept { return output_; }
    [[nodiscard]] const std::string& errors() const noexcept { return errors_; }

private:
    void open_terminal();
    void open_pipes();
    void exchange();
    void write_some();

    bool has_terminal_;
    std::string input_;
    std::string output_;
    std::string errors_;

    struct Ends {
        Descriptor input;
        Descriptor output;
        Descriptor errors;
    };
    Ends program_;
    Ends here_;
    std::size_t written_ = 0;
    std::thread exchange_;
};

/// A pipe whose ends are closed on exec and are none of the descriptors 0 to 2, even where the tests lack some of
/// those: what is put in their place in a child could otherwise be another end. Throws std::system_error.
struct Pipe {
    Pipe();
    Descriptor reading;
    Descriptor writing;
};

} // namespace multirename
