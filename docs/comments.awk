# Doxygen's view of the headers: plain comments become documentation comments. The first block is the file's; a
# comment behind code belongs to that code; what stands in columns or under a deeper indent is kept as it stands.

function text_of(comment) {
    gsub(/\\/, "\\\\", comment)
    gsub(/[<>#@%|]/, "\\\\&", comment)
    gsub(/\*/, "\\\\*", comment)
    gsub(/"/, "\\&quot;", comment)
    return comment
}

# A row of a table or a line of code: indented, and neither a point of a list nor the rest of one.
function is_table(comment) {
    if (comment ~ /^ *- /) in_list = 1
    else if (comment !~ /^  /) in_list = 0
    return !in_list && comment ~ /^  +[^ ]/
}

/^ *\/\// {
    match($0, /^ */)
    margin = substr($0, 1, RLENGTH)
    comment = substr($0, RLENGTH + 3)
    sub(/^ /, "", comment)
    if (NR == 1) print "/// @file"
    if (is_table(comment)) {
        if (!in_table) print margin "///"
        in_table = 1
        print margin "///     " comment
        next
    }
    if (in_table) print margin "///"
    in_table = 0
    print margin "/// " text_of(comment)
    next
}

# The layout of the records is told by their members.
/^(static_assert|TESSARA_AT|#(define|undef) TESSARA_AT)/ { skipping = 1 }
skipping {
    if (/;$/ || /^#/) skipping = 0
    next
}

{
    in_list = in_table = 0
    at = index($0, "  // ")
    if (at > 0 && $0 !~ /^ *}  \/\/ namespace/)
        print substr($0, 1, at - 1) "  ///< " text_of(substr($0, at + 5))
    else
        print
}
