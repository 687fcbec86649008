#include "core/system/file_handle.h"

namespace orvel {

namespace {

class Not_Ordinary_Category : public std::error_category {
public:
    const char* name() const noexcept override { return "orvel"; }
    std::string message(int reason) const override
    {
        return static_cast<Not_Ordinary>(reason) == Not_Ordinary::Device
                   ? "It is a pipe or a device, not an ordinary file"
                   : "It is a link that leads to another directory, not an ordinary file";
    }
};

} // namespace

std::error_code make_error_code(Not_Ordinary reason)
{
    static const Not_Ordinary_Category category;
    return {static_cast<int>(reason), category};
}

} // namespace orvel
