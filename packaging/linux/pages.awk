# Makes the manual page, or with -v words=1 the words of the completion, of what "tovak -h" prints.

function escaped(text) {
  gsub(/\\/, "\\e", text)
  gsub(/-/, "\\-", text)
  sub(/^[.']/, "\\\\\\&&", text)
  return text
}
function put(text) { if (!words) print text }
function section(name) { put(".SH " name); part = name }
function heading(line) { sub(/:$/, "", line); return toupper(line) }
function example(line) {
  sub(/^ +/, "", line)
  put(".PP\n.nf\n.RS\n" escaped(line) "\n.RE\n.fi")
}

# The first words of an entry are told from the rest by two blanks; a third column is an example of the switch.
function entry(line, at) {
  sub(/^ +/, "", line)
  at = index(line, "  ")
  put(".TP\n.B " escaped(substr(line, 1, at - 1)))
  if (line ~ /^-/ && match(line, /^--?[A-Za-z]/)) remember(substr(line, 1, at - 1))
  told(substr(line, at))
}
function told(line, shown) {
  sub(/^ +/, "", line)
  shown = ""
  if (match(line, /   +-/)) {
    shown = substr(line, RSTART)
    sub(/^ +/, "", shown)
    gsub(/   +/, "  ", shown)
    line = substr(line, 1, RSTART - 1)
  }
  # A list of values has a line for each.
  if (line ~ /^[0-9][0-9, ]*  /) put(".br")
  put(escaped(line))
  if (shown != "") shownLast = shown
}
function endEntry() {
  if (shownLast != "") put(".br\nFor example: " escaped(shownLast))
  shownLast = ""
}
function remember(name) {
  sub(/[a-z].*$/, "", name) # what a person puts in its place
  switches = switches " " name
}

NR == 1 {
  version = $2
  sub(/^[^ ]+ [^ ]+ /, "")
  put(".TH TOVAK 1 \"" day "\" \"Tovak " version "\" \"User Commands\"")
  section("NAME")
  name = $0
  sub(/\.$/, "", name)
  sub(/^converts/, "convert", name)
  put("tovak \\- " name)
  next
}
part == "NAME" && /^  tovak / {
  section("SYNOPSIS")
  sub(/^ +/, "")
  put(escaped($0) "\n.br\ntovak [SOURCE | JOB.tovak]")
  section("DESCRIPTION")
  put("Without\n.B \\-B\nor\n.B \\-Q\nthe window opens with what the command line says filled in.")
  next
}
/^Projections:/ { exit }
/^Notes on formats:$/ { endEntry(); counting = ""; section("NOTES"); next }
/^[A-Z][A-Za-z ]* formats:$/ {
  endEntry()
  section(heading($0))
  if ($1 == "Source") counting = "sources"
  else if ($1 == "Target") counting = "targets"
  else counting = ""
  next
}
/^Exit status: / { endEntry(); section("EXIT STATUS"); sub(/^Exit status: /, "") }
/^$/ { endEntry(); if (part != "NAME" && counting == "") put(".PP"); next }
counting != "" && /^ *[0-9]+  / {
  put(".br\n" escaped($0))
  numbers[counting] = numbers[counting] " " $1
  next
}
/^  tovak / { example($0); next }
/^  [^ ]/ { endEntry(); if (/^  -/ && part != "OPTIONS") section("OPTIONS"); entry($0); next }
/^   / { told($0); next }
{ if (part == "OPTIONS") section("REMARKS"); put(escaped($0)) }

END {
  put(".SH PROJECTIONS\n.B tovak \\-h\nlists them with their numbers; an agency's county zones are among them.")
  put(".SH FILES\n.TP\n.I ~/.local/share/QrAppsData\nThe data folder: the delimited formats, the user's own projection, " \
      "the daily reports.\n.TP\n.I /usr/share/tovak\nThe lists and the datum grid that come with the program. " \
      "Those of the data folder come before them.")
  put(".SH ENVIRONMENT\n.TP\n.B APPDATA, XDG_DATA_HOME\nThe folder that holds the data folder.\n.TP\n" \
      ".B PROJ_DATA\nThe folder of PROJ's database, where it is not the one that PROJ was installed with.")
  if (!words) exit
  if (switches == "" || numbers["sources"] == "" || numbers["targets"] == "") exit 1
  print "# bash completion for tovak"
  print "_tovak_switches='" substr(switches, 2) " --help'"
  print "_tovak_sources='" substr(numbers["sources"], 2) "'"
  print "_tovak_targets='" substr(numbers["targets"], 2) "'"
}
