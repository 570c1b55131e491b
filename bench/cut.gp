# gnuplot -e "csv='cut.csv'; svg='out.svg'" cut.gp: the cost of cutting half of the nodes out of larger and larger trees.
set terminal svg size 800,450 background '#ffffff' font 'sans-serif,12'
set output svg
set datafile separator ','
set logscale x 4
set format x '%.0f'
set xlabel 'nodes'
set ylabel 'nanoseconds'
set y2label 'comparisons'
set yrange [0:*]
set y2range [0:100]
set y2tics
set ytics nomirror
set grid y
set key top left
plot csv skip 1 using 1:4 with linespoints lw 2 lc '#1b5e9b' title 'cut 50 % at a new place', \
     csv skip 1 using 1:5 with linespoints lw 2 lc '#76aadb' title 'the same cut again', \
     csv skip 1 using 1:3 axes x1y2 with linespoints lc '#c0504d' title 'most comparisons (right)'
