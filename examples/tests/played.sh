#!/usr/bin/env bash
# What these programs play is made up, but it has to add up.
# shellcheck disable=SC1091
. "$(dirname "$0")/support.bash"

program orderbook >book || same 'exit status of orderbook' 0 $?
same 'five prices of each side' '5 5' "$(grep -c '^buy ' book) $(grep -c '^sell ' book)"
levels() { sed -n "s/^$1 *\\([0-9.]*\\):.*/\\1/p" book; }
same 'the best to buy at is on top' "$(levels buy | sort -ruV)" "$(levels buy)"
same 'the best to sell at is on top' "$(levels sell | sort -uV)" "$(levels sell)"
same 'whoever would pay the price has got the share' "$(levels buy | head -1)" \
    "$( (levels buy; levels sell) | sort -V | sed -n 5p)"
grep -o '#[0-9].*' book | while read -r queue; do
    numbers=$(grep -o '#[0-9]*' <<<"$queue" | tr -d '#')
    [ "$numbers" = "$(sort -nu <<<"$numbers")" ] || echo "$queue"
done >disorder
same 'first come, first in the queue' '' "$(cat disorder)"
same 'orders at the limits stay, and none beyond' '-0.20 0.20' \
    "$(tr -d , <book | awk '/^Orders/ { printf "%.2f %.2f", $(NF - 2) - $7, $NF - $7 }')"
awk '/ for .* shares$/ { n[$1] = $(NF - 1); if (!n[$1]) print "no share", $1 }
    END { if (n["placed"] != 2 * n["trades"] + n["cancelled"] + n["sent"] + n["waiting"]) print "lost shares" }' \
    book >sums
same 'shares bought are shares sold, and none is lost' '' "$(cat sums)"

program expiry >sessions || same 'exit status of expiry' 0 $?
sed -n 's/ expired: //p' sessions >expired
awk '{ for (i = 3; i <= NF; i += 2) if ($i > $1 || $i <= last || $i < $(i - 2) && i > 3) print; last = $1 }' \
    expired >wrong
same 'all expire in time and in order' '' "$(cat wrong)"
awk '/begun/ { left = $1 - $3 }
    /^by/ { if ((NF - 2) / 2 != left) print; for (i = 4; i <= NF; i += 2) if ($i <= "10:00") print }' sessions >wrong
same 'all others are left' '' "$(cat wrong)"
left() { sed -n "s/^by $1: *//p" sessions | sed 's/  /\n/g'; }
same 'they stand in the order of their names' "$(left name | sort -u)" "$(left name)"
same 'and in the order of their times' "$(left name | sort -k2)" "$(left time)"
same 'some have expired' some "$(sed -n 's/.* begun, [1-9][0-9]* expired.*/some/p' sessions)"

program leaderboard >board || same 'exit status of leaderboard' 0 $?
best=$(sed -n '2,11p' board)
same 'the best are in order' "$(sort -s -k3,3nr <<<"$best")" "$best"
same 'the player stands in the middle of his page' 3 "$(sed -n '/those around/,/^$/p' board | sed 1d | grep -n '>' | cut -d: -f1)"
same 'counts of parts add up' '2000 2000' \
    "$(awk '/have more/ { print $1 + $7 + $12 } /league/ { gsub(/,/, ""); print $5 + $NF }' board | paste -sd ' ')"

program bookings >house || same 'exit status of bookings' 0 $?
awk '/^  room/ { if (($6 " " $7) > "06-30 20:00" || ($9 " " $10) <= "06-30 12:00" || n[$2]++ > 1) print }
    /^The next/ { next } / night/ { for (i = 3; i < NF; i += 2) if (($i " " $(i + 1)) < "06-30 12:00") print }' house >wrong
same 'who is in the house has come and not gone, and no room is free before the time asked for' '' "$(cat wrong)"
same 'there are guests, and rooms for as long as 6 nights' '8 some' \
    "$(awk '/6 nights/ { n = (NF - 2) / 2 } /^  room/ { some = "some" } END { print n, some }' house)"
finish
