#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace orvel {

// What the desktop program has to tell before it has a window: why it ends, or what it was asked for. UTF-8.
struct Early_Text {
    std::string Text;
    bool Is_Failure = true;
};

// Prints it; and shows it in a box where nobody would see what is printed, as in a program without a console.
void Tell_Early(const Early_Text& text, std::ostream& channel, bool channel_is_seen,
                const std::function<void(const Early_Text&)>& show_box);

} // namespace orvel
