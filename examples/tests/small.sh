#!/usr/bin/env bash
# The small examples print what their sources say.
# shellcheck disable=SC1091
. "$(dirname "$0")/support.bash"

same phonebook 'Gauss is in the book already
Turing has 1912
the first name from H on is Hopper
all of them:
  Euler      1707
  Gauss      1777
  Hopper     1906
  Lovelace   1815
  Noether    2323
  Turing     1912
Euler is out, 5 are left' "$(program phonebook)"

same counting '3 b
2 a
2 c
1 d' "$(printf 'b a c\n b\tc d\n\na b' | program counting)"
same 'counting nothing' '' "$(program counting </dev/null)"

same neighbours '4700: nearest is 4700
5000: nearest is 4700, between 4700 and 5600
5500: nearest is 5600, between 4700 and 5600
1: nearest is 10
1e+09: nearest is 8.2e+06' "$(program neighbours 4700 5000 5500 1 1e9)"
same 'no number' $'neighbours: 5k: no resistance in ohms\n100: nearest is 100\n1' \
    "$(program neighbours 5k 100 2>&1; echo $?)"

same graph 'digraph tree {
  "b"
  "b" -> "a" [label=left]
  "b" -> "d\""' "$(program graph b 'd"' a b | head -4)"
finish
