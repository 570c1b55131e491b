# Reads what passes printed: operation,keys,n,container,build,ns.  Writes medians and quartiles of every build to the file
# csv, and prints a Markdown table of each container's best build: base in nanoseconds, the others as ratios to base.
BEGIN { FS = "," }
{
    if (!seen["row", $1, $2]++) rows[++row_count] = $1 FS $2
    if (!seen["size", $3]++) sizes[++size_count] = $3
    if (!seen["container", $4]++) containers[++container_count] = $4
    if (!seen["build", $5]++) builds[++build_count] = $5
    cell = $1 FS $2 FS $3 FS $4 FS $5
    times[cell, ++passes[cell]] = $6
}
END {
    sort(sizes, size_count)
    arrange_columns()
    print "operation,keys,n,container,build,median_ns,q1_ns,q3_ns,passes,ratio,best" >csv
    print_heading()
    for (r = 1; r <= row_count; ++r)
        for (s = 1; s <= size_count; ++s)
            report(rows[r] FS sizes[s])
}

function sort(list, count,    i, k, value) {
    for (i = 2; i <= count; ++i) {
        value = list[i]
        for (k = i; k > 1 && list[k - 1] + 0 > value + 0; --k)
            list[k] = list[k - 1]
        list[k] = value
    }
}

# base first, then our own containers, then the others.
function arrange_columns(    rank, c, name) {
    for (rank = 0; rank < 3; ++rank)
        for (c = 1; c <= container_count; ++c) {
            name = containers[c]
            if (rank == (name == base ? 0 : name ~ /^ovant/ ? 1 : 2))
                columns[++column_count] = name
        }
}

function quantile(part,    at, low) {
    at = 1 + part * (length_sorted - 1)
    low = int(at)
    return low == at ? sorted[low] : sorted[low] + (at - low) * (sorted[low + 1] - sorted[low])
}

function summarize(cell,    i) {
    length_sorted = passes[cell]
    for (i = 1; i <= length_sorted; ++i)
        sorted[i] = times[cell, i]
    sort(sorted, length_sorted)
    low[cell] = quantile(0.25)
    median[cell] = quantile(0.5)
    high[cell] = quantile(0.75)
}

# The build with the smallest median, as its cell; nothing if the container has not run this.
function best_of(case, container,    b, cell, found) {
    for (b = 1; b <= build_count; ++b) {
        cell = case FS container FS builds[b]
        if (!(cell in passes))
            continue
        summarize(cell)
        if (!found || median[cell] < median[found])
            found = cell
    }
    return found
}

function report(case,    c, b, cell, line, any) {
    for (c = 1; c <= column_count; ++c)
        best[c] = best_of(case, columns[c])
    split(case, part, FS)
    line = sprintf("| %-14s | %-9s | %7d |", part[1], part[2], part[3])
    for (c = 1; c <= column_count; ++c) {
        line = line sprintf(" %16s |", best[c] ? shown(best[c], best[1], c) : "")
        any = any best[c]
        for (b = 1; b <= build_count; ++b) {
            cell = case FS columns[c] FS builds[b]
            if (cell in passes)
                printf "%s,%.6g,%.6g,%.6g,%d,%s,%d\n", cell, median[cell], low[cell], high[cell], passes[cell],
                    best[1] ? sprintf("%.6g", median[cell] / median[best[1]]) : "", cell == best[c] >csv
        }
    }
    if (any)
        print line
}

# Time or ratio, build, and half of the distance between the quartiles in percent.
function shown(cell, yardstick, column,    part, value) {
    split(cell, part, FS)
    value = column == 1 || !yardstick ? median[cell] : median[cell] / median[yardstick]
    return sprintf(value < 0.1 ? "%.2g %s ±%.0f" : value < 100 ? "%.2f %s ±%.0f" : "%.0f %s ±%.0f", value,
                   part[5], 50 * (high[cell] - low[cell]) / median[cell])
}

function print_heading(    c, rule) {
    printf "| %-14s | %-9s | %7s |", "Operation", "Keys", "n"
    rule = "|---|---|--:|"
    for (c = 1; c <= column_count; ++c) {
        printf " %15s |", columns[c] (columns[c] == base ? " [ns]" : "")
        rule = rule "--:|"
    }
    print "\n" rule
}
