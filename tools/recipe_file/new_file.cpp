#include "new_file.h"

#include "outcome.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// What an interrupted run removes. One at a time; empty: nothing.
char pendingPath[4096];

void removeAndDie(int signalNumber)
{
    if (pendingPath[0] != '\0')
        unlink(pendingPath);
    signal(signalNumber, SIG_DFL);
    raise(signalNumber);
}

void watch(const std::string& path)
{
    if (path.size() >= sizeof(pendingPath))
        return;
    std::memcpy(pendingPath, path.c_str(), path.size() + 1);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        signal(number, removeAndDie);
}

void refuseUnlessFree(const std::string& target, bool replace)
{
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    if (!fs::exists(status)) {
        if (fs::is_symlink(target, ignored))
            throw ToolError(target + " is a link to a file that does not exist.");
        if (target.empty() || target.back() == '/')
            throw ToolError(target + " is no name for a file.");
        return;
    }
    if (fs::is_directory(status))
        throw ToolError(target + " is a directory.");
    if (!fs::is_regular_file(status))
        throw ToolError(target + " is not an ordinary file.");
    if (!replace)
        throw ToolError(target + " exists already; give --force to replace it.");
}

void refuseRemains(const std::string& target)
{
    for (const char* suffix : {"-journal", "-wal"}) {
        std::error_code ignored;
        if (fs::exists(target + suffix, ignored))
            throw ToolError(target + suffix
                            + " holds the remains of an interrupted write, which would end up in the new "
                            + "file; move it away first.");
    }
}

void syncFolder(const fs::path& folder)
{
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

fs::path folderOf(const std::string& target)
{
    const fs::path folder = fs::path(target).parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

bool syncFile(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool done = fsync(descriptor) == 0;
    close(descriptor);
    return done;
}

/// A link stays, and the file that it leads to is replaced.
std::string behindLinks(const std::string& name)
{
    std::error_code error;
    const fs::path file = fs::is_symlink(name, error) ? fs::canonical(name, error) : fs::path();
    return file.empty() || error ? name : file.string();
}

/// Where the file system cannot rename without replacing (some memory cards), the earlier look has to do.
int renameWithoutReplacing(const char* from, const char* to)
{
    const int result = renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
    if (result == 0 || (errno != EINVAL && errno != ENOSYS))
        return result;
    if (access(to, F_OK) == 0) {
        errno = EEXIST;
        return -1;
    }
    return std::rename(from, to);
}

} // namespace

NewFile::NewFile(const std::string& name, bool replace)
    : m_target(replace ? behindLinks(name) : name), m_replace(replace)
{
    const std::string& target = m_target;
    refuseUnlessFree(target, replace);
    refuseRemains(target);
    const fs::path folder = folderOf(target);
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored))
        throw ToolError("There is no folder " + folder.string() + '.');
    std::string pattern = (folder / ('.' + fs::path(target).filename().string() + ".XXXXXX")).string();
    const int descriptor = mkstemp(pattern.data());
    if (descriptor < 0)
        throw ToolError("Cannot write into the folder " + folder.string() + ": " + systemMessage(errno) + '.');
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(descriptor, 0666 & ~mask);
    close(descriptor);
    m_path = pattern;
    watch(m_path);
}

NewFile::~NewFile()
{
    if (!m_path.empty())
        unlink(m_path.c_str());
    pendingPath[0] = '\0';
}

void NewFile::commit()
{
    if (!syncFile(m_path))
        throw ToolError("Cannot write " + m_target + ": " + systemMessage(errno) + '.');
    const int result = m_replace ? std::rename(m_path.c_str(), m_target.c_str())
                                 : renameWithoutReplacing(m_path.c_str(), m_target.c_str());
    if (result != 0)
        throw ToolError("Cannot write " + m_target + ": " + systemMessage(errno) + '.');
    m_path.clear();
    pendingPath[0] = '\0';
    syncFolder(folderOf(m_target));
}

std::string readWholeFile(const std::string& path)
{
    if (path == "-")
        return std::string(std::istreambuf_iterator<char>(std::cin), {});
    std::error_code ignored;
    if (fs::is_directory(path, ignored))
        throw ToolError(path + " is a directory.");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw ToolError("Cannot read " + path + ": " + systemMessage(errno) + '.');
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::string systemMessage(int code)
{
    return std::strerror(code);
}
