#!/usr/bin/env bash
# The commit that a source tree takes for its own: in a clone, in an archive, and where there is none. And
# the form in which tavkit prints it, where that is built: commit_test.sh [TAVKIT VERSION]
source "$(dirname "$0")/../support/sandbox.sh"
cd "$sandbox"
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null
unset GIT_DIR GIT_WORK_TREE

commit_all() {
  git init -q "$1"
  git -C "$1" add .
  git -C "$1" -c user.name=A -c user.email=a@example.org commit -qm All
}

# expect_commit TREE COMMIT
expect_commit() { expect "$1" "<$2>" "$(cmake -D "tree=$PWD/$1" -P print.cmake 2>&1)"; }

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
commit=$(git -C clone rev-parse HEAD | head -c 12)

expect_commit clone "$commit"
expect_commit worktree "$commit"
GIT_DIR=$PWD/outer/.git expect_commit clone "$commit"
expect_commit archive "$commit"
expect_commit outer/copy ""
expect_commit no_commits ""
commit_all archive # an archive that is part of another repository
expect_commit archive "$commit"
mkdir bin
ln -s "$(type -P cmake)" bin
PATH=$PWD/bin expect_commit clone "" # without git

if [[ $# -gt 0 ]]; then
  [[ $("$1" --version) =~ ^"tavkit $2"(" ("[0-9a-f]{12}")")?$ ]] || fail "$("$1" --version)"
  expect "a command's version" "$("$1" --version)" "$("$1" list --version)"
fi
