// A file that appears whole or not at all: written beside its place under another name, renamed at the end.
#ifndef NEW_FILE_H
#define NEW_FILE_H

#include <string>

class NewFile
{
public:
    /// Creates the empty file to write into. A ToolError where the target exists and `replace` is false, where it is
    /// not an ordinary file, where its folder is missing or not writable, and where the remains of an interrupted
    /// write lie beside it: SQLite would play them back into the new file.
    NewFile(const std::string& target, bool replace);
    /// Removes what was not committed.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    const std::string& path() const { return m_path; }

    /// Puts the file into its place, on the disk too. Without `replace`, a file that appeared there in the meantime
    /// is refused.
    void commit();

private:
    std::string m_target;
    std::string m_path; ///< empty once committed
    bool m_replace;
};

/// The whole of a text file; a ToolError says why not. "-" is standard input.
std::string readWholeFile(const std::string& path);

/// A sentence's end for an errno.
std::string systemMessage(int code);

#endif
