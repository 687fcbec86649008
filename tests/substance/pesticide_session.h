#pragma once

#include "core/session.h"
#include "recording_user.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

// A session with a new pesticide document and a user who keeps every message.
class Pesticide_Session : public testing::Test {
protected:
    Pesticide_Session()
    {
        Reset_PSM(Document);
        The_Session.Ask = [this](const Message& message) { return The_User(message); };
    }

    const std::unique_ptr<Session> Held = std::make_unique<Session>();
    Session& The_Session = *Held;
    Pesticide_Document& Document = The_Session.Pesticide;
    Recording_User The_User;
};

} // namespace orvel
