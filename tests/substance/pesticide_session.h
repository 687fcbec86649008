#pragma once

#include "core/session.h"
#include "told.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

// A session with a new pesticide document and a user who keeps every message.
class Pesticide_Session : public testing::Test {
protected:
    Pesticide_Session()
    {
        Reset_PSM(Document);
        Shared.Ask = [this](const Message& message) { return The_User(message); };
    }

    const std::unique_ptr<Session> Held = std::make_unique<Session>();
    Session& Shared = *Held;
    Pesticide_Document& Document = Shared.Pesticide;
    Told The_User;
};

} // namespace orvel
