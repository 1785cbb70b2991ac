#include "kit/check/usual_type.h"

#include <algorithm>
#include <array>

#include "foundation/text_utilities.h"
#include "kit/frame/split_name.h"

namespace tavrel::kit {

namespace {

struct UsualExtension {
  const char* extension;
  AssetType type;
};

constexpr std::array<UsualExtension, 5> kUsualExtensions{{
    {"wav", typeWave},
    {"aif", typeWave},
    {"aiff", typeWave},
    {"mid", typeMidi},
    {"midi", typeMidi},
}};

}  // namespace

AssetType usualType(const std::string& path) {
  const std::string name = path.substr(path.find_last_of("/\\") + 1);
  const std::string extension = splitName(name).extension;
  const auto* const row = std::find_if(
      kUsualExtensions.begin(), kUsualExtensions.end(), [&extension](const UsualExtension& one) {
        return equalsIgnoringCase(one.extension, extension.c_str());
      });
  return row == kUsualExtensions.end() ? typeUserAsset : row->type;
}

}  // namespace tavrel::kit
