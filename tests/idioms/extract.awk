# Writes the programs of docs/recipes.md, each a C block that begins with its file name in a comment, and what the page
# says they print (the plain block that follows) into files beside each other: timers.c and timers.txt.
/^```/ {
    file = inside || !name || $0 != "```" ? "" : name ".txt"
    begins = !inside && $0 == "```c"
    inside = !inside
    if (file) name = ""
    next
}
begins { name = substr($2, 1, length($2) - 2); file = name ".c"; begins = 0 }
inside && file { print > file }
