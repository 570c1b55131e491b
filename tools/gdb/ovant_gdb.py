"""Ovant trees in gdb: commands below `ovant`, and printers.

    (gdb) ovant list day                    the records of a C++ tree, in order
    (gdb) ovant list day Event time text    those of a C tree: the type of its nodes, and the members to show
    (gdb) help ovant                        all of it

Everything is read from memory and nothing is called, so that it works on a core dump too.  Damaged links are told and
not followed: every command ends.
"""
import re
import gdb
import gdb.printing

LEFT, HERE, RIGHT, NEW = -1, 0, 1, -2
DIR_NAMES = {LEFT: "LEFT", HERE: "HERE", RIGHT: "RIGHT", NEW: "NEW"}
SIDES = {LEFT: "left", RIGHT: "right"}
DEEPEST = 100  # no tree that fits into memory has as many levels


# ---- Types and values -----------------------------------------------------------------------------------------------

def stripped(type_):
    return type_.strip_typedefs().unqualified()


def find_type(name):
    for prefix in ("", "struct ", "union ", "class "):
        try:
            return stripped(gdb.lookup_type(prefix + name))
        except gdb.error:
            pass
    return None


def has_members(type_):
    return type_.code in (gdb.TYPE_CODE_STRUCT, gdb.TYPE_CODE_UNION)


def member(type_, path):
    """Offset and type of a member, by a name such as `stamp` or `stamp.second`; None where there is none."""
    name, _, rest = path.partition(".")
    for field in type_.fields() if has_members(type_) else ():
        if not hasattr(field, "bitpos"):
            continue  # static
        offset, found = field.bitpos // 8, None
        if field.name == name and not field.is_base_class:
            found = member(stripped(field.type), rest) if rest else (0, field.type)
        elif field.is_base_class or not field.name:
            found = member(stripped(field.type), path)
        if found:
            return offset + found[0], found[1]
    return None


def links_of(type_):
    names = []
    for field in type_.fields():
        if str(stripped(field.type)) in ("AVL_Link", "struct AVL_Link", "ovant::link"):
            names.append(field.name)
        elif field.is_base_class:
            names += links_of(stripped(field.type))
    return names


def value_at(address, type_):
    return gdb.Value(address).cast(type_.pointer()).dereference()


def address_of(value):
    """The node that a value means: a pointer, a number, a position, or the record itself."""
    type_ = stripped(value.type)
    if type_.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
        return address_of(value.referenced_value())
    if re.match(r"ovant::typed::iterator<", str(type_)):
        return int(value["at_"])
    return int(value.address if has_members(type_) else value)


def is_text(type_):
    return type_.code in (gdb.TYPE_CODE_PTR, gdb.TYPE_CODE_ARRAY) and stripped(type_.target()).sizeof == 1


def plain(value):
    """A number or a text that Python compares as C and C++ do; None for what only the program can compare."""
    type_ = stripped(value.type)
    if type_.code in (gdb.TYPE_CODE_INT, gdb.TYPE_CODE_CHAR, gdb.TYPE_CODE_BOOL, gdb.TYPE_CODE_ENUM):
        return int(value)
    if type_.code == gdb.TYPE_CODE_FLT:
        return float(value)
    if is_text(type_):
        return value.string("latin-1")
    if re.match(r"std::(__\w+::)?basic_string<char,", str(type_)):
        try:
            return value["_M_dataplus"]["_M_p"].string("latin-1", length=int(value["_M_string_length"]))
        except gdb.error:
            return None
    return int(value) if type_.code == gdb.TYPE_CODE_PTR else None


def shown(value):
    return value.format_string(max_elements=60, repeat_threshold=0)


# ---- Trees ----------------------------------------------------------------------------------------------------------

def machine():
    """How wide a pointer is, and which of its bytes comes first."""
    order = "big" if "big" in gdb.execute("show endian", to_string=True) else "little"
    return gdb.lookup_type("void").pointer().sizeof, order


class Links:
    """The header inside a node."""

    def __init__(self, address, width, order):
        header = bytes(gdb.selected_inferior().read_memory(address, 2 * width + 1))
        self.left, self.right = (int.from_bytes(header[i * width:(i + 1) * width], order) for i in (0, 1))
        self.balance = int.from_bytes(header[-1:], order, signed=True)

    def child(self, side):
        return self.left if side == LEFT else self.right


class Tree:
    """A root, and what is known of its nodes.

    keys are pairs of a name and a function from a node's address to a value.  direction is +1 where the smallest key
    stands first, -1 where the largest does, 0 where only the program knows.
    """

    def __init__(self, kind, root, link_offset, record=None):
        self.kind, self.root, self.link_offset, self.record = kind, root, link_offset, record
        self.keys, self.direction, self.unique, self.fold = [], 0, False, False
        self.fields = []  # those that the user has named
        self.machine = machine()

    def links(self, node):
        return Links(node + self.link_offset, *self.machine)

    def height(self):
        """By the balances, down the higher side."""
        node, height = self.root, 0
        while node and height < DEEPEST:
            links = self.links(node)
            node = links.left if links.balance < 0 else links.right
            height += 1
        return height

    def reader(self, name):
        found = member(self.record, name)
        if not found:
            raise gdb.GdbError("%s has no member %s" % (self.record, name))
        return name, lambda node: value_at(node + found[0], found[1])

    def name_fields(self, names):
        """Members that a user wants to see and, a - before it says largest first, that the tree is ordered by."""
        if not names:
            return
        if not self.record:
            raise gdb.GdbError("no type is known whose member %s could be" % names[0])
        self.fields = self.keys = [self.reader(name.lstrip("-")) for name in names]
        self.direction = -1 if names[0].startswith("-") else 1
        self.fold = self.unique = False

    def key(self, node):
        values = [plain(read(node)) for _, read in self.keys]
        if not values or None in values:
            return None
        return tuple(v.lower() if self.fold and isinstance(v, str) else v for v in values)

    def label(self, node, names=True):
        """What a node is called by: its key, else its address alone."""
        try:
            parts = [(name + " = " if names and name else "") + shown(read(node)) for name, read in self.keys]
        except gdb.MemoryError:
            return "(in no memory)"
        return (", " if names else " ").join(parts)

    def line(self, node):
        return ("0x%x  " % node + self.label(node)).rstrip()

    def whole(self, node):
        if self.fields or not self.record:
            return self.line(node)
        return "0x%x  %s" % (node, shown(value_at(node, self.record)))


# Comparators of the C face whose keys can be read: the key's type, which end is first, whether cases are one.
COMPARATORS = {
    "SignedChar": ("signed char", -1), "UnsignedChar": ("unsigned char", -1), "SignedShort": ("short", -1),
    "UnsignedShort": ("unsigned short", -1), "SignedLong": ("int", -1), "Time": ("int", -1),
    "HandleDirekt": ("unsigned int", -1), "HandlePointer": ("unsigned int", +1), "Float": ("float", +1),
    "Double": ("double", +1), "String": ("char []", +1), "StringRevers": ("char []", -1),
    "String_Upper": ("char []", +1), "PtrString": ("char *", +1), "PtrTString": ("char *", 0),
}


def c_tree(value):
    tree = Tree("AVL_Tree", int(value["Root"]), int(value["LeftOff"]))
    offset, comparator = int(value["KeyOff"]), re.search(r"<(\w+)", value["Cmp"].format_string(symbols=True))
    tree.comparator = comparator.group(1) if comparator else "0x%x" % int(value["Cmp"])
    form, tree.direction = COMPARATORS.get(tree.comparator.replace("AVL_CMP_", ""), (None, 0))
    tree.fold = tree.comparator == "AVL_CMP_String_Upper"
    if form:
        base = gdb.lookup_type(form.split(" [")[0].replace(" *", ""))
        if form.endswith("*"):
            base = base.pointer()
        if form.endswith("[]"):  # its own length is found at each node
            text = lambda node: gdb.Value(node + offset).cast(base.pointer()).string("latin-1")
            tree.keys = [("key", lambda node: gdb.Value(text(node)))]
        else:
            tree.keys = [("key", lambda node: value_at(node + offset, base))]
    return tree


def arguments(name):
    """The arguments of a template, as text."""
    parts, depth, text = [], 0, name[name.index("<") + 1:name.rindex(">")]
    start = 0
    for i, c in enumerate(text):
        depth += (c in "<({") - (c in ">)}")
        if c == "," and depth == 0:
            parts.append(text[start:i].strip())
            start = i + 1
    return parts + [text[start:].strip()]


def derives(type_, base):
    return any(f.is_base_class and (stripped(f.type) == base or derives(stripped(f.type), base))
               for f in type_.fields())


def member_named(word):
    """Class and member of &Class::member; clang puts some of them in parentheses."""
    word = word[2:-1] if word.startswith("&(") and word.endswith(")") else word[1:] if word.startswith("&") else ""
    owner, _, name = word.rpartition("::")
    type_ = find_type(owner) if owner else None
    return (type_, name) if type_ else None


def typed_tree(name, root):
    """By the name of ordered<record, unique, link, key, compare, dispose>, or of traits<> of the same.

    gdb reads no arguments that are values, so that the name tells most.
    """
    _, unique, link, key, comparator = arguments(name)[:5]
    parts = arguments(key) if "keys_of<" in key else [key]
    named = member_named(link)
    if not named:
        raise gdb.GdbError("nothing is known of the type that %s is a member of" % link)
    record, members = named[0], [member_named(part) for part in parts]
    if members[0] and derives(members[0][0], record):
        record = members[0][0]
    kind = "ovant::set" if unique == "true" else "ovant::multiset"
    tree = Tree(kind, root, member(record, named[1])[0], record)
    tree.unique, tree.comparator = unique == "true", comparator
    if "itself" in key:
        tree.keys = [("", lambda node: value_at(node, record))]
    elif all(m and member(record, m[1]) for m in members):
        tree.keys = [tree.reader(m[1]) for m in members]
    if re.match(r"std::(compare_three_way|(ranges::)?less\b)", comparator):
        tree.direction = 1
    elif re.match(r"std::(ranges::)?greater\b", comparator):
        tree.direction = -1
    return tree


def typed_of(value):
    """The tree that a position or a tree of the C++ face means; None for anything else."""
    type_ = stripped(value.type)
    if re.match(r"ovant::ordered<", str(type_)):
        return typed_tree(str(type_), int(value["root_"]))
    if re.match(r"ovant::typed::iterator<", str(type_)):
        home = value["tree_"]
        return typed_tree(arguments(str(type_))[0], int(home["root_"]) if int(home) else 0)
    return None


def dereferenced(value):
    while stripped(value.type).code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
        value = value.referenced_value()
    target = stripped(value.type)
    if target.code == gdb.TYPE_CODE_PTR and re.match(r"(struct )?AVL_Tree$|ovant::", str(stripped(target.target()))):
        return value.dereference()
    return value


def typed_or_c(value):
    if re.match(r"(struct )?AVL_Tree$", str(stripped(value.type))):
        return c_tree(value)
    return typed_of(value)


def bare_tree(root, record, link):
    if not record:
        raise gdb.GdbError("this is no tree; of a bare root, say the type of its records: ROOT TYPE, or ROOT TYPE.LINK")
    links = [link] if link else links_of(record)
    if len(links) != 1 or not member(record, links[0]):
        has = "the links " + ", ".join(links) if links else "no member of type AVL_Link or ovant::link"
        raise gdb.GdbError("%s has %s; say which: TYPE.LINK" % (record, has))
    return Tree("root", root, member(record, links[0])[0], record)


def type_and_link(word):
    """TYPE or TYPE.LINK."""
    name, dot, link = word.partition(".")
    return (find_type(word), "") if find_type(word) or not dot else (find_type(name), link)


def tree_of(expression, words):
    """The tree of an expression, and what further words say of its records: [TYPE[.LINK]] [MEMBER...]."""
    value = dereferenced(gdb.parse_and_eval(expression))
    tree, type_, link = typed_or_c(value), stripped(value.type), ""
    target = stripped(type_.target()) if type_.code == gdb.TYPE_CODE_PTR else type_
    record = tree.record if tree else target if has_members(target) else None
    if words and words[0] in ("struct", "union", "class"):
        words = words[1:]
    if words and not (tree and tree.record):
        told, link = type_and_link(words[0])
        if not told and not record:
            raise gdb.GdbError("there is no type " + words[0])
        if told:
            record, words = told, words[1:]
    tree = tree or bare_tree(address_of(value), record, link)
    tree.record = tree.record or record
    tree.name_fields(words)
    return tree


# ---- The one way through a tree -------------------------------------------------------------------------------------

class Place:
    """A node on the way; side is the one that the way takes from it."""

    def __init__(self, node, links):
        self.node, self.links, self.side, self.left_height = node, links, LEFT, 0


def tour(tree, fault):
    """Yields the way to each node, in order; the last place is the node itself.  The list changes as the tour goes on.

    What is wrong goes to fault(way, node, reason), node being the bad one and way leading to it, and is passed over.
    """
    way, seen, at = [], set(), tree.root
    while True:
        height = 0
        while at:
            reason = None
            if at in seen:
                reason = "circle" if any(place.node == at for place in way) else "shared"
            elif len(way) == DEEPEST:
                reason = "deeper than any tree"
            else:
                try:
                    links = tree.links(at)
                except (gdb.MemoryError, OverflowError):
                    reason = "in no memory"
            if reason:
                fault(way, at, reason)
                height = None
                break
            seen.add(at)
            way.append(Place(at, links))
            at = links.left
        while way and way[-1].side == RIGHT:
            place = way.pop()
            left, balance = place.left_height, place.links.balance
            if left is None or height is None:
                height = None
                continue
            if balance != height - left or balance not in (-1, 0, 1):
                reason = "wrong balance: %+d, but the subtrees are %d and %d high" % (balance, left, height)
                fault(way, place.node, reason)
            height = 1 + max(left, height)
        if not way:
            return
        way[-1].left_height = height
        way[-1].side = HERE
        yield way
        way[-1].side = RIGHT
        at = way[-1].links.right


def way_text(way):
    return ", ".join(SIDES[place.side] for place in way) or "root"


def noted(tree, notes):
    """The tour, with all faults as text at the end."""
    def fault(way, node, reason):
        notes.append("damaged: 0x%x, %s: %s" % (node, way_text(way), reason))
    return tour(tree, fault)


# ---- Commands -------------------------------------------------------------------------------------------------------

def say(text):
    gdb.write(text + "\n")


def records(count):
    return "%d record%s" % (count, "" if count == 1 else "s")


def limit():
    return gdb.parameter("print elements") or 1 << 62


class Ovant(gdb.Command):
    """Look at Ovant trees, in a process or in a core dump.

TREE is an expression (in quotes where it has blanks): an AVL_Tree, an ovant::set or ovant::multiset, a position in
one, a pointer to one; or a bare root.  WHAT says more of its records: [TYPE] [MEMBER...].
  TYPE      what the nodes of a C tree are; of a bare root with several links, TYPE.LINK
  MEMBER    what is shown of a record instead of all of it; -MEMBER where the largest stands first
`set print elements' limits what is listed and drawn.  $node is the node that was found last."""

    def __init__(self):
        super().__init__("ovant", gdb.COMMAND_DATA, gdb.COMPLETE_NONE, True)


class Command(gdb.Command):
    least = 1

    def __init__(self):
        super().__init__("ovant " + type(self).__name__.lower(), gdb.COMMAND_DATA, gdb.COMPLETE_EXPRESSION)

    def invoke(self, argument, from_tty):
        words = gdb.string_to_argv(argument)
        if len(words) < self.least:
            self.usage()
        null_stop = gdb.parameter("print null-stop")
        gdb.execute("set print null-stop on", to_string=True)
        try:
            self.run(*words)
        except gdb.error as error:
            raise gdb.GdbError(str(error))
        finally:
            gdb.execute("set print null-stop " + ("on" if null_stop else "off"), to_string=True)


    def usage(self):
        raise gdb.GdbError("usage: " + self.__doc__.splitlines()[-1])


class List(Command):
    """The records of a tree, in order.
ovant list TREE [TYPE] [MEMBER...]"""

    def run(self, expression, *words):
        tree, notes, count, most = tree_of(expression, words), [], 0, limit()
        for way in noted(tree, notes):
            if count == most:
                say("...")
                break
            say(tree.whole(way[-1].node))
            count += 1
        say("\n".join(notes + [records(count)]))


class Draw(Command):
    """A tree on its side, the last record on top; + and - where a side is higher.
ovant draw TREE [TYPE] [MEMBER...]"""

    def run(self, expression, *words):
        tree, notes, rows, most = tree_of(expression, words), [], [], limit()
        for way in noted(tree, notes):
            if len(rows) == most:
                rows.append("...")
                break
            sides = [place.side for place in way[:-1]]
            bars = "".join("    " if a == b else "|   " for a, b in zip(sides, sides[1:]))
            branch = ("/-- " if sides[-1] == RIGHT else "\\-- ") if sides else ""
            node, balance = way[-1].node, way[-1].links.balance
            name = tree.label(node, False) or "0x%x" % node
            rows.append(bars + branch + name + (" +" if balance > 0 else " -" if balance < 0 else ""))
        for row in rows[::-1] + notes:
            say(row)


class Find(Command):
    """The records whose key (or first MEMBER) equals a value, wherever they stand, with the way to each.
Looks at all records, so that it finds those too that a search misses in a damaged tree.
ovant find TREE VALUE [TYPE] [MEMBER]"""
    least = 2

    def run(self, expression, key, *words):
        tree, notes, count = tree_of(expression, words), [], 0
        if not tree.keys or (tree.root and tree.key(tree.root) is None):
            raise gdb.GdbError("the key of this tree is not known, or no number or text; name a TYPE or MEMBER")
        wanted = plain(gdb.parse_and_eval(key))
        wanted = wanted.lower() if tree.fold and isinstance(wanted, str) else wanted
        for way in noted(tree, notes):
            found = tree.key(way[-1].node)
            if found is not None and found[0] == wanted:
                say("%s\n  way   %s" % (tree.whole(way[-1].node), way_text(way[:-1])))
                remember(tree, way[-1].node)
                count += 1
        for note in notes if count else notes + ["none"]:
            say(note)


class Path(Command):
    """The way from the root to a node.  Of a position of the C++ face, TREE and NODE are the one expression.
ovant path TREE NODE [TYPE] [MEMBER...]"""

    def run(self, expression, node=None, *words):
        tree = tree_of(expression, words)
        if not node and tree.kind in ("AVL_Tree", "root"):
            self.usage()
        at = address_of(gdb.parse_and_eval(node or expression))
        for way in noted(tree, []):
            if way[-1].node == at:
                for name, place in zip(["root"] + [SIDES[p.side] for p in way[:-1]], way):
                    say("%-6s %s" % (name, tree.line(place.node)))
                remember(tree, at)
                return
        raise gdb.GdbError("no way leads from the root to 0x%x" % at)


class Stack(Command):
    """The path stack of an AVL_Tree, or the path that a position of the C++ face keeps.
ovant stack TREE [TYPE] [MEMBER...]"""

    def run(self, expression, *words):
        value, tree = dereferenced(gdb.parse_and_eval(expression)), tree_of(expression, words)
        if tree.kind == "AVL_Tree":
            entry, top = value["Stack"], None
        elif "top_" in [f.name for f in stripped(value.type).fields()]:
            if not int(value["found_"]):
                say("no path has been looked for yet")
                return
            if int(value["found_"]) != int(value["tree_"]["changes_"]):
                say("older than the tree, and will be found again")
            entry, top = value["path_"][0].address, value["top_"]
        else:
            raise gdb.GdbError("an ovant::set has no path stack; a position in one has")
        if int(entry["Node"]) not in (0, tree.root):
            say("does not begin at the root: a path that holds no longer")
        for i in range(DEEPEST):
            node, side = int(entry["Node"]), int(entry["Dir"])
            say("%2d  %-5s  %s" % (i, DIR_NAMES.get(side, side) if node else "", tree.line(node) if node else "0"))
            if node == 0 or side not in (LEFT, RIGHT) or entry == top:
                break
            following = int((entry + 1)["Node"])
            if tree.links(node).child(side) != following:
                say("    does not lead to the next entry, 0x%x: a path that holds no longer" % following)
            entry = entry + 1


class Check(Command):
    """Whether links, balances and, where the key can be read, the order of a tree are sound; else the first bad node.
ovant check TREE [TYPE] [MEMBER...]"""

    class Found(Exception):
        pass

    def run(self, expression, *words):
        tree = tree_of(expression, words)
        try:
            count, ordered = self.verify(tree)
        except self.Found as found:
            way, node, reason = found.args
            say("damaged: %s\n  node  %s\n  way   %s" % (reason, tree.line(node), way_text(way)))
            if way:
                say("  below %s" % tree.line(way[-1].node))
            remember(tree, node)
            return
        order = "in order" if ordered else "order not looked at"
        say("sound: %s, height %d, %s" % (records(count), tree.height(), order))

    def verify(self, tree):
        def fault(way, node, reason):
            raise self.Found(list(way), node, reason)
        count, before, ordered = 0, None, tree.direction != 0
        for way in tour(tree, fault):
            node = way[-1].node
            key = tree.key(node) if ordered else None
            ordered = key is not None
            if before is not None and ordered and not self.may_follow(tree, before, key):
                fault(way[:-1], node, "wrong order: it stands behind %s" % ", ".join(map(repr, before)))
            count, before = count + 1, key
        return count, ordered

    @staticmethod
    def may_follow(tree, before, key):
        if before == key:
            return not tree.unique
        return (before < key) == (tree.direction > 0)


def remember(tree, node):
    type_ = tree.record or gdb.lookup_type("void")
    gdb.set_convenience_variable("node", gdb.Value(node).cast(type_.pointer()))


# ---- Printers -------------------------------------------------------------------------------------------------------

class LinkPrinter:
    """A link in a record: not the record's business, so no more than whether anything hangs there."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        links = Links(int(self.value.address), *machine())
        return "{left = 0x%x, right = 0x%x, balance = %d}" % (links.left, links.right, links.balance)


class TreePrinter:
    def __init__(self, value):
        self.tree = typed_or_c(value)

    def to_string(self):
        try:
            height = self.tree.height()
        except gdb.MemoryError:
            return self.tree.kind + ", damaged"
        by = " by " + self.tree.comparator if self.tree.kind == "AVL_Tree" else ""
        return "%s%s, %s" % (self.tree.kind, by, "height %d" % height if height else "empty")

    def children(self):
        for i, way in enumerate(tour(self.tree, lambda *_: None)):
            node = way[-1].node
            yield "[%d]" % i, value_at(node, self.tree.record) if self.tree.record else self.tree.line(node)

    def display_hint(self):
        return "array"


class PositionPrinter:
    def __init__(self, value):
        self.at = value["at_"]

    def to_string(self):
        return "at " + shown(self.at.dereference()) if int(self.at) else "at the end"


def register():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("ovant")
    printers.add_printer("link", "^(AVL_Link|ovant::link)$", LinkPrinter)
    printers.add_printer("tree", "^(AVL_Tree$|ovant::ordered<)", TreePrinter)
    printers.add_printer("position", "^ovant::typed::iterator<", PositionPrinter)
    gdb.printing.register_pretty_printer(None, printers, replace=True)
    for command in (Ovant, List, Draw, Find, Path, Stack, Check):
        command()


register()
