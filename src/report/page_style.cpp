#include "report/page_style.h"

namespace orvel {

namespace {

// Marks are told by words too, since colours may be lost in print.
constexpr std::string_view Page_Rules = R"(
:root { color-scheme: light dark; --ink: #1c1f23; --ground: #ffffff; --soft: #f3f5f7; --rule: #c9ced6; --above: #b3261e; --warn: #fff4d6; }
@media (prefers-color-scheme: dark) {
  :root { --ink: #e6e8eb; --ground: #16181b; --soft: #22262b; --rule: #454b54; --above: #ff8a7a; --warn: #3a3218; }
}
body { margin: 2rem auto; max-width: 60rem; padding: 0 1rem; color: var(--ink); background: var(--ground);
       font: 16px/1.45 system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
h1 { font-size: 1.7rem; } h2 { font-size: 1.35rem; margin-top: 2.2rem; border-bottom: 1px solid var(--rule); } h3 { font-size: 1.1rem; margin-top: 1.6rem; }
.wide { overflow-x: auto; }
table { width: 100%; border-collapse: collapse; font-size: 0.9rem; font-variant-numeric: tabular-nums; }
th, td { padding: 0.3rem 0.7rem; border-bottom: 1px solid var(--rule); text-align: left; vertical-align: top; }
thead th { background: var(--soft); } td.number, th.number { text-align: right; white-space: nowrap; }
td.class { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
tr.above td { color: var(--above); font-weight: 600; } td.problem { font-style: italic; }
.digest { font-family: ui-monospace, "DejaVu Sans Mono", monospace; font-size: 0.8em; word-break: break-all; }
ul.notes { background: var(--warn); padding: 0.8rem 1rem 0.8rem 2.2rem; border-radius: 0.3rem; }
figure { margin: 1.2rem 0; } figure svg { width: 100%; max-width: 47rem; height: auto; } figcaption { font-weight: 600; }
@media print {
  :root { --ink: #000000; --ground: #ffffff; --soft: #eeeeee; --rule: #888888; --above: #8c1d18; --warn: #ffffff; }
  @page { size: A4; margin: 18mm; }
  body { margin: 0; padding: 0; max-width: none; font-size: 10pt; }
  table { font-size: 8.5pt; } th, td { padding: 1mm 1.5mm; } .wide { overflow: visible; }
  tr, figure, ul.notes { break-inside: avoid; } h2, h3 { break-after: avoid; } thead { display: table-header-group; }
}
)";

} // namespace

std::string Standing_Page(std::string_view title, std::string_view style, std::string_view body)
{
    return "<!DOCTYPE html>\n<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\" xml:lang=\"en\">\n<head>\n<meta "
           "charset=\"utf-8\"/>\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>" +
           std::string(title) + "</title>\n<style>" + std::string(Page_Rules) + std::string(style) +
           "</style>\n</head>\n<body>\n<main>\n" + std::string(body) + "</main>\n</body>\n</html>\n";
}

} // namespace orvel
