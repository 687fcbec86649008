#pragma once

#include <string>
#include <string_view>

namespace orvel {

// A page without anything outside of it: well-formed XHTML, readable in light and dark and on paper. Title and body are
// already escaped; `style` comes behind the rules that all pages share.
std::string Standing_Page(std::string_view title, std::string_view style, std::string_view body);

} // namespace orvel
