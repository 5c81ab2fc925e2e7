#!/usr/bin/env bash
# Builds the tavrin tool (Linux, dev preset) and runs its jobs on the sample
# project in sample/. The sample is copied to a scratch folder first, so the
# files in the repository never change.
#
# The jobs are a list: to add one, write a function job_<name> below and put
# <name> in JOBS. Each job gets the scratch copy in $work and the tool in
# $tavrin.
set -euo pipefail

cd "$(dirname "$0")/.."
root=$PWD

JOBS=(
  snippet_if_then_elseif_else
  snippet_for_next_in_place
  lines_add_remove
  comment_add_remove
  html_page
  access_keys_report
  access_keys_fix
  settings
)

# Prints and runs one command.
run() {
  printf '$'
  printf ' %q' "$@"
  printf '\n'
  "$@"
}

# The code-module line (what --caret counts) of the first line of FILE that
# contains TEXT: the file line less the Attribute lines of the header, which
# the IDE hides.
code_line() {
  local file=$1 text=$2
  local file_line header
  file_line=$(grep -n -F -m1 -- "$text" "$file" | cut -d: -f1)
  if [[ -z $file_line ]]; then
    echo "sample.sh: '$text' not found in $file" >&2
    return 1
  fi
  header=$(awk '!/^Attribute /{print NR - 1; exit}' "$file")
  echo $((file_line - header))
}

# "If Then ElseIf Else" below the first statement of Sub Main, with one ElseIf
# (the answer to the tool's question); the edited module comes out as JSON.
job_snippet_if_then_elseif_else() {
  local line
  line=$(code_line "$work/basMain.bas" "Set gItems = New Collection")
  run "$tavrin" snippet "If Then ElseIf Else" "$work/basMain.bas" \
    --caret "$line:5" --answer 1 --json
}

# "ForNext" written into the file itself; the changed lines are shown as a diff.
job_snippet_for_next_in_place() {
  local line
  line=$(code_line "$work/basMain.bas" "LoadStock = True")
  cp "$work/basMain.bas" "$work/basMain.before.bas"
  run "$tavrin" snippet ForNext "$work/basMain.bas" --caret "$line:5" -i
  run diff -u "$work/basMain.before.bas" "$work/basMain.bas" || true
}

# Line numbers over Sub Main, written into the file and shown as a diff; then
# removed again, which gives back the original apart from empty lines, which
# come back holding one blank.
job_lines_add_remove() {
  local first last
  first=$(code_line "$work/basMain.bas" "Public Sub Main()")
  last=$((first + 8))
  cp "$work/basMain.bas" "$work/basMain.before.bas"
  run "$tavrin" lines add "$work/basMain.bas" --lines "$first-$last" -i
  run diff -u "$work/basMain.before.bas" "$work/basMain.bas" || true
  run "$tavrin" lines remove "$work/basMain.bas" --lines "$first-$last" -i
  run diff -u "$work/basMain.before.bas" "$work/basMain.bas" || true
}

# Three lines commented (selected by dragging to column 1 of the fourth) as
# JSON, then commented and uncommented in the file: no difference remains.
job_comment_add_remove() {
  local first
  first=$(code_line "$work/basMain.bas" "Set gItems = New Collection")
  run "$tavrin" --json comment add "$work/basMain.bas" --select "$first:5-$((first + 3)):1"
  cp "$work/basMain.bas" "$work/basMain.before.bas"
  run "$tavrin" comment add "$work/basMain.bas" --lines "$first-$((first + 2))" -i
  run "$tavrin" comment remove "$work/basMain.bas" --lines "$first-$((first + 2))" -i
  run diff -u "$work/basMain.before.bas" "$work/basMain.bas" && echo "(no difference)"
}

# The module as a coloured page (Windows-1252, as it declares), and one
# procedure's fragment.
job_html_page() {
  run "$tavrin" html "$work/basMain.bas" -o "$work/basMain.htm"
  run head -c 400 "$work/basMain.htm"
  echo
  run "$tavrin" html "$work/basMain.bas" --procedure Main --fragment
  echo
}

# The main form's access keys: &Find and &File share F, &Open, &Options and
# &Open... share O (status 1: conflicts found).
job_access_keys_report() {
  run "$tavrin" access-keys "$work/frmMain.frm" || echo "(status $?)"
  run "$tavrin" --json access-keys "$work/frmMain.frm" || echo "(status $?)"
}

# The F conflict corrected (mnuFile kept, cmdFind becomes Fi&nd), the O
# conflict left; the form is written and the changed line shown.
job_access_keys_fix() {
  cp "$work/frmMain.frm" "$work/frmMain.before.frm"
  run "$tavrin" access-keys "$work/frmMain.frm" --fix --yes --answer "" --answer "Fi&nd" --no \
    || echo "(status $?)"
  run diff -u "$work/frmMain.before.frm" "$work/frmMain.frm" || true
# The settings on first use (the add-in folder is created and seeded), one
# changed, and the names, paths and INI model that follow from them.
job_settings() {
  run "$tavrin" settings --json
  run "$tavrin" settings set "Const Tag Before Type Tag" False
  run "$tavrin" name MaxItems --type Long --scope global --const
  run "$tavrin" name Count --type Long --scope module
  run "$tavrin" path '<fragments>\Headers And Comments\ProcedureHeader.bas'
  run "$tavrin" folders
  run "$tavrin" ini get tvrusr.ini "Const Builder" "Const Tag Before Type Tag"
  run "$tavrin" ini dump tvrtp.ini --json
}

echo "==> bash scripts/install-deps.sh --linux-only"
bash scripts/install-deps.sh --linux-only
echo "==> cmake --preset dev"
cmake --preset dev >/dev/null
echo "==> cmake --build --preset dev --target tavrin"
cmake --build --preset dev --target tavrin
tavrin=$root/build/dev/tavrin

work=$(mktemp -d "${TMPDIR:-/tmp}/tavrin-sample.XXXXXX")
trap 'rm -rf "$work"' EXIT
cp -R sample/. "$work/"
# The tool's own folder (INI files, code folders) in the scratch folder too.
export TAVRIN_HOME=$work/.tavrin

for job in "${JOBS[@]}"; do
  echo
  echo "==> job $job"
  "job_$job"
done
echo
echo "==> sample jobs done"
