#pragma once

#include "core/message.h"

#include <filesystem>
#include <QDialog>
#include <vector>

namespace orvel {

// The page of a first start, when there is no installation yet: what the program is, and a button that makes one.
class Welcome : public QDialog {
    Q_OBJECT

public:
    // `parts` are those of Installation_In; `suggested` is where the installation may lie.
    Welcome(std::vector<std::filesystem::path> parts, Ask_Function ask, const std::filesystem::path& suggested);

    // Where to go on; an empty path if the page was closed.
    const std::filesystem::path& Installation() const { return Chosen; }
    bool Shows_The_Way() const { return Guided; } // through the first assessment

private:
    void Make();
    void Open_Existing();

    std::vector<std::filesystem::path> Parts;
    Ask_Function Ask;
    std::filesystem::path Chosen;
    bool Guided = false;
};

} // namespace orvel
