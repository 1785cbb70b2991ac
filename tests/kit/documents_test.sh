#!/usr/bin/env bash
# The man pages are well-formed, the completions work, and both are those that the program makes:
#   documents_test.sh BUILD
set -euo pipefail
build=$(realpath "$1")
cd "$(dirname "$0")/../.."

scripts/documents --check "$build"
# mandoc knows only the pages that are installed. tests/docs checks whether the others exist.
problems=$(mandoc -T lint -W all docs/*.1 | grep -v 'referenced manual not found') || true
[[ -z $problems ]] || {
  echo "$problems" >&2
  exit 1
}

# What bash offers after the given words, the last one being typed.
offered() {
  COMP_WORDS=(tavkit "$@")
  COMP_CWORD=$#
  _tavkit tavkit "${COMP_WORDS[-1]}" "${COMP_WORDS[-2]}"
  echo "${COMPREPLY[*]}"
}
compopt() { :; } # works only while bash completes
source kit/completions/tavkit.bash
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
touch "$folder"/{a.tvb,a.h,b.txt}
[[ $(offered li) == list ]]
[[ $(offered list --no-) == --no-header ]]
[[ $(offered list "$folder/") == "$folder/a.tvb" ]]
[[ $(offered list --header "$folder/a.h") == "$folder/a.h" ]]
if type zsh >/dev/null 2>&1; then
  zsh -n kit/completions/_tavkit
else
  echo "The completions for zsh aren't checked, because zsh isn't installed"
fi
