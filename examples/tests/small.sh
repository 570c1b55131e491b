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
finish
