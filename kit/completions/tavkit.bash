# Completion of tavkit for bash. Made from its table of commands by scripts/documents.
# shellcheck shell=bash

# Completes a folder, or a file whose name doesn't match the pattern.
_tavkit_files() {
  compopt -o filenames
  mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X "$1" -- "$current")
}

_tavkit_words() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current"); }

_tavkit() {
  local current=$2 previous=$3 command=${COMP_WORDS[1]}
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    _tavkit_words 'list verify extract diff show quality check explain new deps build report -h --help --version'
    return
  fi
  case $command:$previous in
    list:--header) _tavkit_files ''; return ;;
    verify:--header) _tavkit_files ''; return ;;
    verify:--script) _tavkit_files '!*.txt'; return ;;
    verify:-C) _tavkit_files '*'; return ;;
    verify:--prefix) :; return ;;
    verify:--bank-dir) _tavkit_files '*'; return ;;
    verify:--header-dir) _tavkit_files '*'; return ;;
    extract:-o | extract:--output) _tavkit_files '*'; return ;;
    extract:--channels) :; return ;;
    extract:--script) _tavkit_files ''; return ;;
    extract:--header) _tavkit_files ''; return ;;
    diff:--old-header) _tavkit_files ''; return ;;
    diff:--new-header) _tavkit_files ''; return ;;
    quality:-C) _tavkit_files '*'; return ;;
    quality:--prefix) :; return ;;
    quality:--bank-dir) _tavkit_files '*'; return ;;
    quality:--header-dir) _tavkit_files '*'; return ;;
    quality:--below) :; return ;;
    check:-C) _tavkit_files '*'; return ;;
    check:--prefix) :; return ;;
    check:--bank-dir) _tavkit_files '*'; return ;;
    check:--header-dir) _tavkit_files '*'; return ;;
    check:--format) _tavkit_words 'text json sarif'; return ;;
    check:--allow) :; return ;;
    check:--below) :; return ;;
    check:--max-bytes) :; return ;;
    new:-o | new:--output) _tavkit_files '!*.txt'; return ;;
    new:--bank) :; return ;;
    new:-C) _tavkit_files '*'; return ;;
    new:--prefix) :; return ;;
    new:--bank-dir) _tavkit_files '*'; return ;;
    new:--header-dir) _tavkit_files '*'; return ;;
    deps:-C) _tavkit_files '*'; return ;;
    deps:--prefix) :; return ;;
    deps:--bank-dir) _tavkit_files '*'; return ;;
    deps:--header-dir) _tavkit_files '*'; return ;;
    deps:--target) :; return ;;
    deps:-o | deps:--output) _tavkit_files ''; return ;;
    build:-C) _tavkit_files '*'; return ;;
    build:--prefix) :; return ;;
    build:--bank-dir) _tavkit_files '*'; return ;;
    build:--header-dir) _tavkit_files '*'; return ;;
    build:--format) _tavkit_words 'text json sarif'; return ;;
    build:--allow) :; return ;;
    build:--below) :; return ;;
    build:--max-bytes) :; return ;;
    build:--depfile) _tavkit_files ''; return ;;
    build:--stamp) _tavkit_files ''; return ;;
    build:--declared) _tavkit_files ''; return ;;
    report:--header) _tavkit_files ''; return ;;
    report:--script) _tavkit_files '!*.txt'; return ;;
    report:-C) _tavkit_files '*'; return ;;
    report:--prefix) :; return ;;
    report:--bank-dir) _tavkit_files '*'; return ;;
    report:--header-dir) _tavkit_files '*'; return ;;
    report:-o | report:--output) _tavkit_files ''; return ;;
    report:--audio-limit) :; return ;;
  esac
  if [[ $current == -* ]]; then
    case $command in
      list) _tavkit_words '--header --no-header --json -h --help --version' ;;
      verify) _tavkit_words '--header --no-header --script -C --prefix --bank-dir --header-dir --json -h --help --version' ;;
      extract) _tavkit_words '-o --output --raw --channels --script --force --header --no-header -h --help --version' ;;
      diff) _tavkit_words '--old-header --new-header --no-header --ids --json -h --help --version' ;;
      show) _tavkit_words '-h --help --version' ;;
      quality) _tavkit_words '-C --prefix --bank-dir --header-dir --below --json -h --help --version' ;;
      check) _tavkit_words '-C --prefix --bank-dir --header-dir --format --werror --allow --below --max-bytes --json --fix --list-codes -h --help --version' ;;
      explain) _tavkit_words '-h --help --version' ;;
      new) _tavkit_words '-o --output --bank --adpcm --add -C --prefix --bank-dir --header-dir -h --help --version' ;;
      deps) _tavkit_words '-C --prefix --bank-dir --header-dir --target -o --output -h --help --version' ;;
      build) _tavkit_words '-C --prefix --bank-dir --header-dir --format --werror --allow --below --max-bytes --depfile --stamp --declared --no-check -q --quiet -h --help --version' ;;
      report) _tavkit_words '--header --no-header --script -C --prefix --bank-dir --header-dir -o --output --audio-limit -h --help --version' ;;
    esac
    return
  fi
  case $command in
    list) _tavkit_files '!*.tvb' ;;
    verify) _tavkit_files '!*.tvb' ;;
    extract) _tavkit_files '!*.tvb' ;;
    diff) _tavkit_files '!*.tvb' ;;
    show) _tavkit_files '' ;;
    quality) _tavkit_files '!*.txt' ;;
    check) _tavkit_files '!*.txt' ;;
    explain) : ;;
    new) _tavkit_files '' ;;
    deps) _tavkit_files '!*.txt' ;;
    build) _tavkit_files '!*.txt' ;;
    report) _tavkit_files '!*.tvb' ;;
  esac
}

complete -F _tavkit tavkit
