# Converts the headers for Doxygen: plain comments become documentation comments. The first block documents the file, and
# a comment after code documents that code. Columns and indented lines keep their layout.

function text_of(comment) {
    gsub(/\\/, "\\\\", comment)
    gsub(/[<>#@%|]/, "\\\\&", comment)
    gsub(/\*/, "\\\\*", comment)
    gsub(/"/, "\\&quot;", comment)
    return comment
}

# Whether a line is a row of a table or code: it is indented, and not part of a list.
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

# Leaves out the checks of record layouts; the members document the layout.
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
