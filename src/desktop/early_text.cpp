#include "desktop/early_text.h"

#include <ostream>

namespace orvel {

void Tell_Early(const Early_Text& text, std::ostream& channel, bool channel_is_seen,
                const std::function<void(const Early_Text&)>& show_box)
{
    channel << text.Text << (text.Text.ends_with('\n') ? "" : "\n") << std::flush;
    if (!channel_is_seen)
        show_box(text);
}

} // namespace orvel
