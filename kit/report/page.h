// The page of the report, from report.html, report.css and the scripts, as the build has embedded
// it. Data go between its two halves.
#pragma once

#include <string_view>

namespace tavrel::kit {

extern const std::string_view kPageStart;
extern const std::string_view kPageEnd;

}  // namespace tavrel::kit
