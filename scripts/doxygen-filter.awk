# What Doxygen reads in place of a header: the comments of this project in a form that Doxygen takes literally.
#   at the top of a file          what the file is for
#   before a declaration          its description; indented lines (layouts, arguments) as written
#   after a declaration           the same
#   // ---- NAME ----             a group of declarations, up to the next one, the end of the class or of its access
# A comment that an empty line follows belongs to no declaration and is left out.

function escape(text) {
  gsub(/[\\@<>#%&]/, "\\\\&", text)
  return text
}

function is_comment(i) { return i <= NR && line[i] ~ /^ *\/\// }

function text_of(i,    text) {
  text = line[i]
  sub(/^ *\/\/\/? ?/, "", text)
  return text
}

function is_laid_out(i, last) { return i <= last && text_of(i) ~ /^ / }

# The comment of the lines from first to last; a tail closes it.
function describe(first, last, tail,    i, text) {
  for (i = first; i <= last; ++i) {
    text = text_of(i)
    gsub(/\*\//, "* /", text)
    if (!is_laid_out(i, last)) text = escape(text)
    else {
      if (i == first || !is_laid_out(i - 1, last)) text = "@verbatim " text
      if (!is_laid_out(i + 1, last)) text = text " @endverbatim"
    }
    out[i] = (i == first ? "/** " : "") text (i == last ? tail : "")
  }
}

function close_group(    closing) {
  closing = group ? "/** @} */ " : ""
  group = 0
  return closing
}

{ line[NR] = $0; out[NR] = $0 }

END {
  for (last = 1; is_comment(last); ++last) {}
  describe(1, last - 1, "")
  if (last > 1) out[last] = "@file */" # in the place of an empty line
  for (i = last; i <= NR; ++i) {
    if (line[i] ~ /^ *\/\/ ---- .* ----$/) {
      text = text_of(i)
      gsub(/^---- |\.? ----$/, "", text)
      out[i] = close_group() "/** @name " escape(text) " */ /** @{ */"
      group = 1
    } else if (is_comment(i)) {
      for (last = i; is_comment(last + 1); ++last) {}
      if (line[last + 1] != "") describe(i, last, " */")
      i = last
    } else if (line[i] ~ /^(public:|protected:|private:|};|#pragma GCC visibility pop)$/) {
      out[i] = close_group() line[i]
    } else if (line[i] !~ /^ *#/ && match(line[i], / +\/\/(\/<)? /)) {
      out[i] = substr(line[i], 1, RSTART - 1) " ///< " escape(substr(line[i], RSTART + RLENGTH))
    }
  }
  for (i = 1; i <= NR; ++i) print out[i]
}
