// lock_holder FILE: takes and releases SQLite's locks on a file as told on standard input, one word per line: "shared",
// "reserved", "exclusive", "release". Answers "taken", "refused" or "released".
#include <sqlite3.h>

#include <iostream>
#include <string>

namespace {

const char* statementFor(const std::string& word)
{
    if (word == "shared")
        return "BEGIN; SELECT count(*) FROM sqlite_master;";
    return word == "reserved" ? "BEGIN IMMEDIATE;" : "BEGIN EXCLUSIVE;";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    sqlite3* file = nullptr;
    for (std::string word; std::getline(std::cin, word);) {
        // Opened anew each time: the file is often another one under the same name.
        const bool taken = word != "release"
                           && sqlite3_open_v2(argv[1], &file, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK
                           && sqlite3_exec(file, statementFor(word), nullptr, nullptr, nullptr) == SQLITE_OK;
        if (!taken) {
            sqlite3_close(file); // a transaction ends with its connection
            file = nullptr;
        }
        std::cout << (taken ? "taken" : word == "release" ? "released" : "refused") << std::endl;
    }
    sqlite3_close(file);
}
