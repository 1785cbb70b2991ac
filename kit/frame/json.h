// JSON documents of the commands: keys stay in the order in which they are documented.
#pragma once

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

namespace tavrel::kit {

using Json = nlohmann::ordered_json;

/// Returns `value` rounded to `decimals` decimals.
inline double rounded(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  return std::round(value * scale) / scale;
}

/// Returns the text as a JSON string, or null if it is empty.
inline Json textOrNull(const std::string& text) {
  return text.empty() ? Json(nullptr) : Json(text);
}

/// Returns the document as text, with a line end. Bytes that aren't UTF-8 become U+FFFD.
inline std::string documentText(const Json& document) {
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace tavrel::kit
