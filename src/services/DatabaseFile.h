#pragma once

#include <SQLiteCpp/Database.h>

#include <string>

namespace vardel {

// A file of the database library, opened as one that anybody may have made: what its schema says is
// not trusted, no value is longer than MostBytes, and no statement takes more steps than a file of
// that size can need. Throws as the library does.
class DatabaseFile : public SQLite::Database {
public:
    static constexpr int MostBytes = 16 << 20;

    // Another program that is writing to the file is waited for so long, in ms.
    DatabaseFile(const std::string& path, int mode, int longestWait);

    // Before each statement, whose steps are counted from here.
    void BeginStatement();
    // Whether it was ended because of its steps.
    bool HasOverrun() const { return calls_ > mostCalls_; }

private:
    static int Wait(void* file, int waits);
    static int CountSteps(void* file);

    std::string path_;
    int longestWait_;
    std::uintmax_t calls_ = 0;
    std::uintmax_t mostCalls_ = 0;
};

}  // namespace vardel
