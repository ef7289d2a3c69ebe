#!/usr/bin/env bash
# file_faults.sh HEADERDTC PROJECT: generates a site whose files cannot all be written, as a user
# for whom permissions hold. The pages that can be written are; of the others the reason is told,
# and they stay as they were.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
export LC_ALL=C.UTF-8
trap 'umount disk 2>/dev/null; chmod -R u+w "$folder"; rm -rf "$folder"' EXIT
chmod 755 .
install -m 755 "$1" headerdtc
headerdtc=$PWD/headerdtc

# What runs as somebody else than root.
plain=()
((EUID != 0)) || plain=(setpriv --reuid 65534 --regid 65534 --clear-groups)

cp -r "$project/demo" old
template=drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP
sed -i 's/ExtraFilters = /UserFilters = /' "old/$template"
cp -a old new
check 0 "$headerdtc" generate -q new
all=${out//new\//site/}
page=customers/regions/overview.asp

# Copies the out-of-date site to a folder.
begin() {
    rm -rf "${1:-site}" && cp -a old "${1:-site}"
    ((EUID != 0)) || chown -R 65534:65534 "${1:-site}"
}
# Every page but the named one is written, and that one is not, for this reason.
all_but() {  # all_but PAGE REASON
    check 3 "${plain[@]}" "$headerdtc" generate -q site
    expect "$err" "site/$1: " "$2"
    [[ $(sort <<<"$out
site/$1") == $(sort <<<"$all") ]] || fail "$2: the other pages were not written: $out"
    cmp -s "site/$1" "old/$1" || fail "$2: the page was changed"
    [[ -z $(find site -name '.headerdtc*') ]] || fail "$2: a temporary file stayed behind"
}
# After the fault is gone.
mended() {
    check 0 "${plain[@]}" "$headerdtc" generate -q site
    diff -r site new >differences || fail "$1: not as it should be afterwards: $(cat differences)"
}

begin
chmod 555 site/customers/regions
all_but $page "no new file can be made in its folder: Permission denied"
chmod 755 site/customers/regions
mended "a folder without write permission"

begin
chmod 444 site/$page
all_but $page "cannot be written: Permission denied"
chmod 644 site/$page
mended "a page without write permission"

# Writable for everybody, but the new file would be somebody else's.
if ((EUID == 0)); then
    begin
    chown root site/$page && chmod 666 site/$page
    all_but $page "owner"
fi

begin
ln site/$page second
all_but $page "hard links"
[[ site/$page -ef second ]] || fail "two names of a page were parted"
rm second

begin
mv site/$page real.asp
ln -s "$PWD/real.asp" site/$page
ln -s . site/customers/again
((EUID != 0)) || chown 65534:65534 .
check 0 "${plain[@]}" "$headerdtc" generate -q site
[[ $(sort <<<"$out") == "$(sort <<<"$all")" ]] || fail "a loop of folders was followed: $out"
[[ -L site/$page ]] || fail "a symbolic link became a file"
cmp -s real.asp new/$page || fail "the file behind a symbolic link was not written"

# Larger than a file may become: an error, not the signal that ends a program.
begin
check 3 "${plain[@]}" bash -c "ulimit -f 8; exec \"\$@\"" - "$headerdtc" generate -q site
[[ $err == *"cannot be written: File too large"* ]] || fail "no word of the size: $err"
while read -r each; do
    cmp -s "$each" "old/${each#site/}" || cmp -s "$each" "new/${each#site/}" || fail "$each is broken"
done <<<"$all"
mended "a limit on the size of files"

# The text file of the General tab's "Save", whose failures have the established numbers.
begin
mkdir -p site/drive_c/temp
save=("$headerdtc" automate site/stock.asp)
click='{"do":"click","control":"SaveCommand"}'
chmod 777 site/drive_c/temp
check 0 "${plain[@]}" "${save[@]}" <<<"$click"
expect "$out" '"wrote":"c:\\temp\\DTC.TXT"'
chmod 444 site/drive_c/temp/DTC.TXT
check 0 "${plain[@]}" "${save[@]}" <<<"$click"
expect "$out" 'Permission denied (70)'
chmod 644 site/drive_c/temp/DTC.TXT
check 0 "${plain[@]}" bash -c "ulimit -f 1; exec \"\$@\"" - "${save[@]}" <<<"$click"
expect "$out" 'Disk full (61)'
chmod 000 "site/$template"
check 0 "${plain[@]}" "${save[@]}" <<<'{"do":"runtimeText"}'
expect "$out" 'Permission denied(70)'

# Two at once: what one has done the other finds done, or says.
for round in 1 2 3 4 5 6; do
    begin
    "${plain[@]}" "$headerdtc" generate -q site >out1 2>err1 &
    "${plain[@]}" "$headerdtc" generate -q site >out2 2>err2
    first=$?
    wait $!
    second=$?
    for status in $first $second; do
        ((status == 0 || status == 3)) || fail "round $round: one of two runs ended with $status"
    done
    others=$(grep -v "was changed by someone else\|No such file or directory" err1 err2)
    [[ -z $others ]] || fail "round $round: $others"
    diff -r site new >differences || fail "two runs at once: $(cat differences)"
done

# on_disk OPTIONS: goes on in a file system of its own, mounted with these options.
on_disk() {
    mkdir -p disk && mount -t tmpfs -o "mode=777,$1" tmpfs disk 2>/dev/null
}
# Without room for all pages; $1 is the reason that has to be told, $2 what makes room.
no_room() {
    begin disk/site
    rm -rf site && ln -sfn disk/site site
    "${plain[@]}" bash -c "$3"
    check 3 "${plain[@]}" "$headerdtc" generate -q disk/site
    expect "$err" "$1"
    for each in $all; do
        cmp -s "$each" "old/${each#site/}" || cmp -s "$each" "new/${each#site/}" ||
            fail "$1: $each is broken"
    done
    [[ -z $(find disk -name '.headerdtc*') ]] || fail "$1: a temporary file stayed behind"
    bash -c "$2"
    check 0 "${plain[@]}" "$headerdtc" generate -q disk/site
    diff -r disk/site new >differences || fail "$1: $(cat differences)"
    umount disk
    rm site
}
if ((EUID == 0)) && on_disk size=1m; then
    no_room "cannot be written: No space left on device" "rm disk/filling" \
        "cat /dev/zero >disk/filling 2>/dev/null"
    on_disk size=4m,nr_inodes=80
    no_room "no new file can be made in its folder: No space left on device" "rm -r disk/many" \
        "mkdir disk/many; for i in {1..80}; do : 2>/dev/null >disk/many/\$i; done"
else
    echo "Left out: a full disk; no file system can be mounted here"
fi

# A folder that takes files and lets none go.
begin
if chattr +a site/customers/regions 2>/dev/null; then
    all_but $page "cannot be written: its folder takes new files but lets none go (chattr +a)"
    chattr -a site/customers/regions
    mended "an append-only folder"
else
    echo "Left out: an append-only folder; no file system here has them"
fi

finish
