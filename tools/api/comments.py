"""Prints a header as Doxygen reads it: comments.py HEADER

The headers say things once, in the order in which people read them. Doxygen wants them at each declaration:
- the comment of a member also stands for those of the same name right below it (a get and its let, overloads);
  each takes the @param and @return that it has;
- what stands before a namespace is about the file;
- comparisons that are defaulted are no news.
"""

import re
import sys

COMMENT = re.compile(r"\s*///(?!<)")
NAME = re.compile(r"(~?\w+)\s*\(")


def declaration(lines, start):
    """The lines of the declaration that begins at `start`, up to its ; or its whole body."""
    depth = 0
    for end in range(start, len(lines)):
        code = re.sub(r"//.*|\"[^\"]*\"|'.'", "", lines[end])
        depth += sum(map(code.count, "({")) - sum(map(code.count, ")}"))
        if depth < 0:
            break
        if depth == 0 and code.rstrip().endswith((";", "}")):
            return lines[start : end + 1]
    return lines[start : start + 1]


def fitting(comment, text):
    """The comment without the parameters and the result that a declaration does not have."""
    kept, drops = [], False
    for line in comment:
        tag = re.match(r"\s*/// @(param (\w+)|return)", line)
        if tag and tag.group(2):
            drops = not re.search(rf"\b{tag.group(2)}\b", text)
        elif tag:
            drops = re.match(r"\s*(virtual )?void ", text) is not None
        if not drops:
            kept.append(line)
    return kept


def shared(lines):
    out, comment, name, i = [], [], None, 0
    while i < len(lines):
        if COMMENT.match(lines[i]):
            comment = []
            while i < len(lines) and COMMENT.match(lines[i]):
                comment.append(lines[i])
                i += 1
            name = None
            if i < len(lines) and lines[i].startswith("namespace "):
                out += ["/// @file\n", *comment, "\n"]
                comment = []
            continue
        if re.search(r"operator==\(.*= default;", lines[i]):
            i += 1
            continue
        part = [lines[i]]
        found = None
        if not re.match(r"\s*($|#|(class|struct|enum|namespace|public|private|protected)\b|[{}])", lines[i]):
            part = declaration(lines, i)
            found = NAME.search(re.sub(r"^\s*(template <.*>|explicit)\s*", "", "".join(part)))
        is_documented = comment and name in (None, found and found.group(1))
        if is_documented:
            out += fitting(comment, "".join(part)) if found else comment
        out += part
        if found and is_documented:
            name = found.group(1)
        else:
            comment, name = [], None
        i += len(part)
    return out


with open(sys.argv[1], encoding="utf-8") as header:
    sys.stdout.writelines(shared(header.readlines()))
