#pragma once

#include <filesystem>
#include <string>

namespace orvel {

// The file of a document under edit, as it was when it was opened or saved last.
class Watched_File {
public:
    explicit Watched_File(std::filesystem::path file);

    // Whether somebody has written, moved or deleted the file since, or it cannot be read any more. No other file ever
    // has.
    bool Was_Changed(const std::filesystem::path& file) const;

private:
    std::filesystem::path File;
    std::string Digest; // empty for a file that was not there
};

} // namespace orvel
