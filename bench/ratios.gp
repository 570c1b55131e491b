# gnuplot -e "csv='results.csv'; svg='out.svg'" ratios.gp: medians relative to avl_set, random keys, a panel for each n.
set terminal svg size 1100,1100 background '#ffffff' font 'sans-serif,12'
set output svg
set datafile separator ','
set logscale y
set yrange [0.0002:10]
set ytics ('0.001' 0.001, '0.01' 0.01, '0.1' 0.1, '0.5' 0.5, '1' 1, '2' 2, '5' 5)
set ylabel 'time / time of avl\_set'
set grid y
set style data histograms
set style histogram clustered gap 1
set style fill solid 0.9 noborder
set boxwidth 0.9
set xtics rotate by -30 nomirror
set key outside top center horizontal
operations = 'find hit,find miss,find dependent,lower bound,walk,insert unique,insert equal,erase by key,pop first,mix,delete 50 %,cut 50 %,join'
pick(n, container) = sprintf("<awk -F, -v ops='%s' -v n=%d -v c='%s' 'NR > 1 && $2 == \"random\" && $3 == n && $4 == c { r[$1] = $9 } END { k = split(ops, o, \",\"); for (i = 1; i <= k; ++i) print o[i] \",\" (o[i] in r ? r[o[i]] : \"NaN\") }' %s", operations, n, container, csv)
array names[7] = ['ovant', 'ovant host', 'avl_set clang', 'std::set', 'btree_set', 'GTree', 'RB_tree']
array colours[7] = ['#1b5e9b', '#76aadb', '#c0504d', '#8c8c8c', '#6a994e', '#d9a441', '#7b5ea7']
set multiplot layout 3,1
do for [n in '1000 100000 1000000'] {
    set title 'n = '.n.', random keys: below 1 is faster than avl\_set'
    plot 1 with lines lc '#000000' notitle, \
         for [i=1:7] pick(int(n), names[i]) using 2:xtic(1) lc rgb colours[i] title names[i] noenhanced
}
