# gnuplot -e "csv='results.csv'; svg='out.svg'" ratios.gp: single keys and walks beside avl_set, a panel for each size.
load 'bench/containers.gp'
operations = "insert append build find 'find dependent' 'lower bound' walk 'for each' erase 'pop first' drain mix"
rows = words(operations)
row(name) = sum [k=1:rows] (word(operations, k) eq name ? k : 0)
order(name) = name eq 'append' || name eq 'build' ? 'ascending' : 'random'
ratio(i, n) = strcol(4) eq names[i] && column('n') == n && column('best') == 1 && row(strcol(1)) > 0 && \
              strcol(2) eq order(strcol(1)) ? column('ratio') : NaN
others = ''
do for [i in present] { if (names[i + 0] ne 'avl_set') { others = others.' '.i } }
left(panel) = 0.14 + 0.285 * (panel - 1)

set multiplot
# The legend, over the whole width.
unset border
unset tics
set lmargin at screen 0.02
set rmargin at screen 0.98
set tmargin at screen 0.97
set bmargin at screen 0.9
set yrange [0:1]
set key center center horizontal reverse Left samplen 1
plot for [i in others] NaN with points pt marks[i + 0] ps 0.9 lc rgb colours[i + 0] \
     title names[i + 0] noenhanced
unset key

set border
set logscale x
set xrange [0.008:14]
set xtics ('1/100' 0.01, '1/10' 0.1, '1/4' 0.25, '1/2' 0.5, '1' 1, '2' 2, '4' 4, '10' 10) font ',11'
set yrange [rows + 0.6:0.4]
set ytics scale 0
set for [k=1:rows] ytics add (word(operations, k) k)
set grid xtics lt 1 lc '#dddddd'
set arrow from 1, graph 0 to 1, graph 1 nohead lw 1.5 lc '#000000' back
do for [k=1:rows:2] { set object k rectangle from graph 0, first k - 0.5 to graph 1, first k + 0.5 \
                          fc rgb '#f2f2f2' fs solid noborder behind }
set tmargin at screen 0.84
set bmargin at screen 0.13
do for [panel=1:3] {
    set lmargin at screen left(panel)
    set rmargin at screen left(panel) + 0.27
    set title word('1,000 100,000 1,000,000', panel).' nodes' offset 0, -0.6
    set xlabel (panel == 2 ? 'time as a multiple of what the best build of avl\_set takes' : '') offset 0, 0.2
    plot for [i in others] csv using (ratio(i + 0, word('1000 100000 1000000', panel) + 0)):(row(strcol(1)) + \
         0.09 * (i - 4)) with points pt marks[i + 0] ps (i < 4 ? 0.85 : 0.6) lc rgb colours[i + 0]
    unset ytics
}
unset multiplot
