// The code of fmt 9 that needn't be compiled in each source that includes its headers: once here,
// the kit takes half the time to build. Debian's compiled libfmt is for this host alone, and this
// serves every target. Other versions of fmt are used as headers alone, see kit/CMakeLists.txt.
#include <fmt/format-inl.h>

namespace fmt::detail {

template auto dragonbox::to_decimal(float) noexcept -> dragonbox::decimal_fp<float>;
template auto dragonbox::to_decimal(double) noexcept -> dragonbox::decimal_fp<double>;
template auto thousands_sep_impl(locale_ref) -> thousands_sep_result<char>;
template auto decimal_point_impl(locale_ref) -> char;

}  // namespace fmt::detail
