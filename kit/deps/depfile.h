// The depfile of a bank: what a build must look at to know whether the bank is up to date. It is
// written in the part of make's syntax that make and ninja read alike.
#pragma once

#include <string>
#include <vector>

namespace tavrel::kit {

/// Returns the rule by which `target` depends on `script` and `assets`, and an empty rule for each
/// asset. With its empty rule make takes an asset that is gone for changed and goes on. A name with
/// "%" has none, since make would take it for a pattern. Throws Failure for a name that make and
/// ninja can't both read.
std::string depfileText(const std::string& target, const std::string& script,
                        const std::vector<std::string>& assets);

}  // namespace tavrel::kit
