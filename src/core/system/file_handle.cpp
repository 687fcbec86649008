#include "core/system/file_handle.h"

namespace orvel {

namespace {

class Left_Alone_Category : public std::error_category {
public:
    const char* name() const noexcept override { return "orvel"; }
    std::string message(int reason) const override
    {
        switch (static_cast<Left_Alone>(reason)) {
        case Left_Alone::Device:
            return "It is a pipe or a device, not an ordinary file";
        case Left_Alone::Link_Elsewhere:
            return "It is a link that leads to another directory, not an ordinary file";
        case Left_Alone::In_Use:
            break;
        }
        return "Another program has it open";
    }
};

} // namespace

std::error_code make_error_code(Left_Alone reason)
{
    static const Left_Alone_Category category;
    return {static_cast<int>(reason), category};
}

} // namespace orvel
