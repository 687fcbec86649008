#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

enum class Icon { None, Information, Question, Warning, Stop };
enum class Button { Ok, Cancel, Yes, No };

// A box that a rule wants shown. Title and text are bytes of Windows-1252.
struct Message {
    std::string Title, Text;
    Icon Picture = Icon::Warning;
    std::vector<Button> Buttons{Button::Ok};
    Button Default = Button::Ok;
    bool operator==(const Message&) const = default;
};

// What is wrong with an entry, and the name of the control to return to.
struct Refusal {
    Message Text;
    std::string Control;
    bool operator==(const Refusal&) const = default;
};

// Shows a message and returns the button pressed. Every session has one: a box, a printer, or a test's recorder.
using Ask_Function = std::function<Button(const Message&)>;

// A warning that needs no answer.
inline void Tell(const Ask_Function& ask, std::string_view title, std::string_view text)
{
    ask({std::string(title), std::string(text)});
}

} // namespace orvel
