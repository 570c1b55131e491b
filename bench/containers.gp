# What both charts share: the containers, with colour and mark, and which of them the results have (present).
set terminal svg size 960,520 background '#ffffff' font 'sans-serif,13'
set output svg
set datafile separator ','
set datafile missing NaN
array names[8] = ['ovant.hpp', 'ovant', 'ovant host', 'btree_set', 'std::set', 'avl_set', 'RB_tree', 'GTree']
array colours[8] = ['#0b3d91', '#1f7ae0', '#8cc2f5', '#4f9a3a', '#8c8c8c', '#000000', '#c0504d', '#d9a441']
array marks[8] = [7, 7, 7, 15, 11, 9, 5, 13]
present = ''
do for [i=1:8] {
    if (int(system(sprintf("grep -cF ',%s,' %s || true", names[i], csv)))) { present = present.' '.i }
}
