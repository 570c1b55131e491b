# gnuplot -e "csv='results.csv'; svg='out.svg'" cut.gp: cutting half of the nodes out of larger and larger containers.
load 'bench/containers.gp'
set logscale xy
set xrange [800:1300000]
set xlabel 'nodes in the container'
set xtics ('1,000' 1e3, '10,000' 1e4, '100,000' 1e5, '1,000,000' 1e6)
set ytics ('100 ns' 1e2, '1 µs' 1e3, '10 µs' 1e4, '100 µs' 1e5, '1 ms' 1e6, '10 ms' 1e7, '100 ms' 1e8, '1 s' 1e9)
set yrange [100:*]
set grid xtics ytics lt 1 lc '#dddddd'
set title 'Cutting half of the nodes out'
set key outside right center reverse Left samplen 2 invert
half(i) = strcol(1) eq 'cut 50 %' && strcol(4) eq names[i] && column('best') == 1 ? column('median_ns') : NaN
plot for [i in present] csv using (column('n')):(half(i + 0)) with linespoints lw (i < 4 ? 3 : 1.5) \
     lc rgb colours[i + 0] pt marks[i + 0] ps 0.7 title names[i + 0] noenhanced
