# Writes the programs of a page into files beside each other, and what the page says that they print (the plain block that
# follows): timers.c and timers.txt.  A program is a C or C++ block that begins with its file name in a comment; where
# all of a page's blocks are programs, -v page=NAME names them instead.
/^```/ {
    file = inside || !name || $0 != "```" ? "" : name ".txt"
    suffix = inside ? "" : $0 == "```c" ? ".c" : $0 == "```c++" ? ".cpp" : ""
    inside = !inside
    if (file) name = ""
    next
}
suffix {
    name = page ? page : substr($2, 1, length($2) - length(suffix))
    file = name suffix
    suffix = ""
}
inside && file { print > file }
