#!/usr/bin/env bash
# The man pages are well-formed, the completions work, and both are those that the program makes:
#   documents_test.sh BUILD
source "$(dirname "$0")/../support/sandbox.sh"
build=$(realpath "$1")
cd "$root"

scripts/documents --check "$build"
# mandoc knows only the pages that are installed. tests/docs checks whether the others exist.
expect "what mandoc reports" "" \
  "$(mandoc -T lint -W all docs/*.1 | grep -v 'referenced manual not found')"

expect "the exit code of print_document on a full disk" 1 \
  "$("$build/print_document" bash 2>&1 >/dev/full || echo $?)"

# What bash offers after the given words, the last one being typed.
offered() {
  COMP_WORDS=(tavkit "$@")
  COMP_CWORD=$#
  _tavkit tavkit "${COMP_WORDS[-1]}" "${COMP_WORDS[-2]}"
  echo "${COMPREPLY[*]}"
}
compopt() { :; } # works only while bash completes
source kit/completions/tavkit.bash
touch "$sandbox"/{a.tvb,a.h,b.txt}
expect "a command" list "$(offered li)"
expect "an option" --no-header "$(offered list --no-)"
expect "an operand" "$sandbox/a.tvb" "$(offered list "$sandbox/")"
expect "an option's value" "$sandbox/a.h" "$(offered list --header "$sandbox/a.h")"
if type zsh >/dev/null 2>&1; then
  zsh -n kit/completions/_tavkit
else
  echo "The completions for zsh aren't checked, because zsh isn't installed"
fi
