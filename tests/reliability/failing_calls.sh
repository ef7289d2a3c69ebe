#!/usr/bin/env bash
# failing_calls.sh HEADERDTC PROJECT: lets each system call that has to do with files fail once, one
# after the other, while `headerdtc generate` rewrites two pages, and kills it at each as well.
# Afterwards each page is the old or the new one, a failure was reported, and the next run makes
# all as it should be.
# shellcheck source=tests/cli/checks.sh
. "$2/tests/cli/checks.sh"
export LC_ALL=C.UTF-8 ASAN_OPTIONS=detect_leaks=0

if ! strace -o /dev/null true 2>/dev/null; then
    echo "Skipped: strace is not here, or may not trace"
    exit 77
fi

pages=(customers/regions/overview.asp stock.asp)
cp -r "$project/demo" old
find old \( -name '*.asp' -o -name '*.inc' \) -path 'old/*' ! -path '*/drive_c/*' \
    ! -path 'old/stock.asp' ! -path 'old/customers/regions/overview.asp' -delete
chmod 640 old/stock.asp
sed -i 's/ExtraFilters = /UserFilters = /' old/drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP
cp -a old new
check 0 "$headerdtc" generate -q new
[[ $out == $'new/customers/regions/overview.asp\nnew/stock.asp' ]] || fail "not these pages: $out"

# look WHAT: every page is old or new, with its mode. $allNew tells whether all are new.
look() {
    local page
    allNew=yes
    for page in "${pages[@]}"; do
        [[ $(stat -c %a "site/$page") == $(stat -c %a "old/$page") ]] || fail "$1: mode of $page"
        cmp -s "site/$page" "new/$page" && continue
        allNew=no
        cmp -s "site/$page" "old/$page" || fail "$1: $page is neither old nor new"
    done
}
strays() { find site -name '.headerdtc*'; }

runs=0
# once CALL INJECTION: each call of that name in turn.
once() {
    local call=$1 injection=$2 number=0 begun=0 tampered=yes what
    while [[ $tampered ]]; do
        number=$((number + 1)) what="$call number $number with $injection"
        rm -rf site && cp -a old site
        # In a shell of its own, which keeps to itself that its program was killed.
        (
            strace -f -qq -o trace -e "trace=$call,execve" \
                -e "inject=$call:$injection:when=$number" "$headerdtc" generate -q -j 1 site >out 2>err
            exit $?
        ) 2>/dev/null
        status=$?
        tampered=$(grep -E 'INJECTED|killed by SIGKILL' trace)
        # The system's own beginning of a program is not the matter.
        ((status == 127)) && continue
        runs=$((runs + 1)) begun=1
        look "$what"
        if ((status == 0)); then
            [[ $allNew == yes ]] || fail "$what: pages are old, and nothing was said"
            [[ $(<out) == "${out//new\//site/}" ]] || fail "$what: the pages written were not told"
        elif ((status < 128)); then
            [[ -s err ]] || fail "$what: status $status without a reason"
        elif [[ $injection != signal=KILL ]]; then
            fail "$what: ended by a signal ($status)"
        fi
        while read -r stray; do
            [[ $injection == signal=KILL || $(<err) == *"stays behind as"*"$stray"* ]] ||
                fail "$what: $stray stayed behind, and nothing was said"
        done < <(strays)
        "$headerdtc" generate -q site >out 2>err || fail "$what: the next run failed: $(cat err)"
        look "$what, next run"
        [[ $allNew == yes ]] || fail "$what: a page is old after the next run"
        [[ -z $(strays) ]] || fail "$what: $(strays) is left after the next run"
    done
    ((begun)) || fail "$call never came"
}

for each in openat:EACCES openat:EMFILE pread64:EIO write:ENOSPC write:EDQUOT write:EINTR fchmod:EPERM fdatasync:EIO \
    fsync:EIO renameat2:EIO renameat2:EINVAL unlink:EACCES flock:ENOLCK faccessat2:EROFS clone3:EAGAIN; do
    once "${each%:*}" "error=${each#*:}"
done
for call in openat write fchmod fdatasync renameat2 unlink fsync; do
    once "$call" signal=KILL
done

# With so little memory that it ends sooner or later: in words, and with whole pages.
for kilobytes in 1000 4000 16000 {30000..70000..2500}; do
    what="$kilobytes KB of memory"
    rm -rf site && cp -a old site
    (ulimit -d "$kilobytes" && exec "$headerdtc" generate -q site) >out 2>err
    status=$?
    look "$what"
    ((status == 0 || status == 3)) || fail "$what: ended with $status"
    ((status == 0)) || [[ -s err ]] || fail "$what: ended without a word"
done

echo "$runs runs, in each of which one call failed or was the last."
finish
