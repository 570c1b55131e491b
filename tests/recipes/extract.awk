# Writes the C and the C++ program of README.md into readme.c and readme.cpp, and at their ends what the page says that
# both print: the plain block that follows.
/^```/ {
    file = inside ? "" : $0 == "```c" ? "readme.c" : $0 == "```c++" ? "readme.cpp" : ""
    if (file) programs[file]
    printed = !inside && !file && $0 == "```" && length(programs)
    for (program in programs)
        if (printed) print "/* prints" > program
        else if (closing) print "*/" > program
    if (closing) exit
    closing = printed
    inside = !inside
    next
}
inside && file { print > file }
closing { for (program in programs) print > program }
