#pragma once

#include "core/message.h"

#include <deque>

namespace orvel {

// A user who keeps every message and gives prepared answers; without one, the default button.
struct Recording_User {
    std::vector<Message> Messages;
    std::deque<Button> Answers;

    Button operator()(const Message& message)
    {
        Messages.push_back(message);
        if (Answers.empty())
            return message.Default;
        const Button answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
};

} // namespace orvel
