#!/usr/bin/env bash
# The commit that a source tree takes for its own: in a clone, in an archive, and where there is none. And
# the form in which tavkit prints it, where that is built: commit_test.sh [TAVKIT VERSION]
set -euo pipefail
root=$(realpath "$(dirname "$0")/../..")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null
unset GIT_DIR GIT_WORK_TREE

commit_all() {
  git -C "$1" init -q
  git -C "$1" add .
  git -C "$1" -c user.name=A -c user.email=a@example.org commit -qm All
}

# expect TREE COMMIT: the commit of the tree is this one.
expect() {
  local found
  found=$(cmake -D "tree=$PWD/$1" -P print.cmake 2>&1)
  if [[ $found != "<$2>" ]]; then
    echo "$1: $found instead of <$2>" >&2
    exit 1
  fi
}

cat >print.cmake <<'END'
cmake_minimum_required(VERSION 3.20)
include(${tree}/cmake/commit.cmake)
message("<${TAVREL_COMMIT}>")
END
mkdir -p clone outer/copy archive no_commits
for tree in clone outer/copy no_commits; do
  cp -r "$root/cmake" "$root/.gitattributes" "$tree"
  # shellcheck disable=SC2016 # git expands it
  echo '$Format:%H$' >"$tree/cmake/commit.txt" # this tree may be an archive
done
commit_all clone
commit_all outer
git init -q no_commits
git -C clone worktree add -q ../worktree
git -C clone archive HEAD | tar -x -C archive
commit=$(git -C clone rev-parse HEAD)
commit=${commit:0:12}

expect clone "$commit"
expect worktree "$commit"
GIT_DIR=$PWD/outer/.git expect clone "$commit"
expect archive "$commit"
expect outer/copy ""
expect no_commits ""
commit_all archive # an archive that is part of another repository
expect archive "$commit"
mkdir bin
ln -s "$(type -P cmake)" bin
PATH=$PWD/bin expect clone ""

if [[ $# -gt 0 ]]; then
  [[ $("$1" --version) =~ ^"tavkit $2"(" ("[0-9a-f]{12}")")?$ ]]
  [[ $("$1" list --version) == $("$1" --version) ]]
fi
