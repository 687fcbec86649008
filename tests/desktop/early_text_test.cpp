#include "desktop/early_text.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace orvel {

TEST(Tell_Early, Prints_And_Shows_A_Box_Where_Nobody_Would_See_That)
{
    for (const bool seen : {true, false}) {
        std::ostringstream channel;
        std::vector<std::string> boxes;

        Tell_Early({.Text = "ORVELSUITE cannot write in C:\\Größe."}, channel, seen,
                   [&](const Early_Text& text) { boxes.push_back((text.Is_Failure ? "failure: " : "") + text.Text); });
        Tell_Early({.Text = "usage: orvelsuite\n", .Is_Failure = false}, channel, seen,
                   [&](const Early_Text& text) { boxes.push_back(text.Text); });

        EXPECT_EQ(channel.str(), "ORVELSUITE cannot write in C:\\Größe.\nusage: orvelsuite\n");
        EXPECT_EQ(boxes, seen ? std::vector<std::string>()
                              : (std::vector<std::string>{"failure: ORVELSUITE cannot write in C:\\Größe.",
                                                          "usage: orvelsuite\n"}));
    }
}

} // namespace orvel
