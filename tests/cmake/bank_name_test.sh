#!/usr/bin/env bash
# The names of the bank and the header that a build expects of a script.
source "$(dirname "$0")/../support/sandbox.sh"
cd "$sandbox"

# expect_names NAMES TEXT
expect_names() {
  printf '%b' "$2" >script.txt
  expect "$2" "$1" "$(cmake -D "module=$root/cmake/bank/read_bank_name.cmake" -P print.cmake 2>&1)"
}

cat >print.cmake <<'END'
cmake_minimum_required(VERSION 3.20)
include(${module})
tavrel_read_bank_name(script.txt bank header)
message("${bank} ${header}")
END

expect_names "a.tvb a.h" 'WaveFile MyBankFileName x\nBankFileName a.tvb;'
expect_names "b.x.y b.x.h" \
  'BankFileName a.tvb\nBANKFILENAME b.x.y ; BankFileName c.tvb\nScriptEnd\nBankFileName d.tvb\n'
expect_names "long.bank long.bank.h" \
  ';BankFileName no.tvb\nBankFileName;c\n\tlong.bank\r\nscriptend;x\r\nBankFileName z '
