# One file for people who copy headers: what ovant.hpp is made of, each header once, where it is first wanted.
#   awk -f single_header.awk LICENSE include/ovant.hpp
function path_from(folder, name) {
    name = folder name
    while (sub(/[^\/]+\/\.\.\//, "", name)) {
    }
    return name
}
function put(path,    folder, line, got) {
    if (path in seen)
        return
    seen[path] = 1
    folder = path
    sub(/[^\/]*$/, "", folder)
    while ((got = (getline line < path)) > 0) {
        if (line ~ /^#include "/) {
            split(line, part, "\"")
            put(path_from(folder, part[2]))
        } else if (line != "#pragma once" || !pragmas++) {
            print line
        }
    }
    if (got < 0) {
        print "single_header: cannot read " path > "/dev/stderr"
        exit 1
    }
}
BEGIN {
    while ((getline line < ARGV[1]) > 0)
        print line == "" ? "//" : "// " line
    print ""
    put(ARGV[2])
    exit
}
