# The median column of results.csv as a Markdown table: avl_set in nanoseconds, the others as ratios to it.
BEGIN { FS = "," }
NR == 1 { next }
{
    row = $1 "," $2 "," $3
    if (!(row in seen)) { seen[row] = 1; rows[++row_count] = row }
    if (!($4 in known)) { known[$4] = 1; containers[++container_count] = $4 }
    shown[row, $4] = $4 == "avl_set" ? sprintf("%.*f", $5 < 1000 ? 1 : 0, $5) : sprintf($9 < 0.1 ? "%.2g" : "%.2f", $9)
}
END {
    printf "| Operation | Keys | n |"
    for (c = 1; c <= container_count; ++c) printf " %s |", containers[c] == "avl_set" ? "avl_set [ns]" : containers[c]
    printf "\n|---|---|--:|"
    for (c = 1; c <= container_count; ++c) printf "--:|"
    printf "\n"
    for (r = 1; r <= row_count; ++r) {
        split(rows[r], part, ",")
        printf "| %s | %s | %d |", part[1], part[2], part[3]
        for (c = 1; c <= container_count; ++c)
            printf " %s |", (rows[r], containers[c]) in shown ? shown[rows[r], containers[c]] : "–"
        printf "\n"
    }
}
