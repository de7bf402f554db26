// The library as it ships, opened the way a panel does, and the names behind the addresses in it. Test programs that
// include this link the runtime but none of the item's objects, and define SHEET_LIBRARY, the library's path.
#ifndef SHIPPED_LIBRARY_H
#define SHIPPED_LIBRARY_H

#include "HMIBaseItem.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cxxabi.h>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

inline std::string demangled(const char* name)
{
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> text(abi::__cxa_demangle(name, nullptr, nullptr, &status), &std::free);
    std::string readable = status == 0 ? text.get() : name;
    // In Qt 6 they are one type.
    const std::string strings = "QList<QString>";
    for (size_t at = readable.find(strings); at != std::string::npos; at = readable.find(strings))
        readable.replace(at, strings.size(), "QStringList");
    return readable;
}

/// The lines that a command prints.
inline std::vector<std::string> linesOf(const std::string& command)
{
    std::vector<std::string> lines;
    FILE* const pipe = popen(command.c_str(), "r");
    EXPECT_NE(pipe, nullptr);
    char line[4096];
    while (pipe && std::fgets(line, sizeof line, pipe))
        lines.push_back(std::string(line, std::string(line).find_last_not_of('\n') + 1));
    EXPECT_EQ(pipe ? pclose(pipe) : -1, 0) << command;
    return lines;
}

class ShippedLibrary
{
public:
    ShippedLibrary() : m_handle(dlopen(SHEET_LIBRARY, RTLD_NOW | RTLD_LOCAL))
    {
        EXPECT_NE(m_handle, nullptr) << dlerror();
    }
    // Never closed: what it registered with Qt stays in use.

    template <typename Function> Function* entry(const char* name) const
    {
        void* const address = dlsym(m_handle, name);
        EXPECT_NE(address, nullptr) << name;
        return reinterpret_cast<Function*>(address);
    }

    /// The functions that start at an address: those of the library, exported or not, or those of a library it uses.
    /// Several where the linker or the compiler folded equal ones.
    std::set<std::string> namesAt(void* address)
    {
        Dl_info info;
        if (!dladdr(address, &info))
            return {};
        Names& names = m_names[info.dli_fname];
        if (names.empty())
            readNames(info.dli_fname, names);
        const auto found =
            names.find(reinterpret_cast<uintptr_t>(address) - reinterpret_cast<uintptr_t>(info.dli_fbase));
        return found == names.end() ? std::set<std::string>() : found->second;
    }

private:
    typedef std::map<uintptr_t, std::set<std::string> > Names; // by distance from where the library is loaded

    /// An emulator (qemu) gives the program another root than the commands that it starts.
    static std::string seenByCommands(const std::string& file)
    {
        const char* const root = std::getenv("QEMU_LD_PREFIX");
        const std::string inRoot = (root ? root : "") + file;
        return access(inRoot.c_str(), R_OK) == 0 ? inRoot : file;
    }

    static std::string withoutVersion(const std::string& name) { return name.substr(0, name.find('@')); }

    static void readNames(const std::string& file, Names& names)
    {
        const std::string table = file == SHEET_LIBRARY ? "" : "--dynamic ";
        for (const std::string& line : linesOf("nm --defined-only " + table + "'" + seenByCommands(file) + "'")) {
            char type = 0;
            unsigned long long address = 0;
            char name[2048];
            if (std::sscanf(line.c_str(), "%llx %c %2047s", &address, &type, name) == 3)
                names[static_cast<uintptr_t>(address)].insert(demangled(withoutVersion(name).c_str()));
        }
    }

    void* m_handle;
    std::map<std::string, Names> m_names; // by file
};

#endif
