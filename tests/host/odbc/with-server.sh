#!/usr/bin/env bash
# with-server.sh postgresql|mariadb COMMAND...: runs a command beside a database server of its own,
# on a free loopback port and with all its files in a temporary folder. The server is stopped and
# the folder removed however the command ends.
#
# The command finds in its environment:
#   HEADERDTC_SERVER        the kind of server
#   HEADERDTC_SERVER_INI    an odbc.ini whose data source Orvane leads to it
#   HEADERDTC_SERVER_STOP   a shell command that ends it at once
#
# Exit status: the command's; 77 when the server is not installed (1 instead with
# HEADERDTC_REQUIRE_SERVERS, for where leaving it out has to be noticed).
set -uo pipefail

PATH=$PATH:/usr/sbin
for bin in /usr/lib/postgresql/*/bin; do PATH=$PATH:$bin; done

skip() {
    echo "Skipped: no private $kind server: $1. Debian packages: ${packages[*]}"
    [[ -z ${HEADERDTC_REQUIRE_SERVERS:-} ]] || exit 1
    exit 77
}

describe_postgresql() {
    driver="PostgreSQL Unicode"
    user=postgres
    end=QUIT # with KILL its shared memory would stay
    programs=(initdb postgres pg_isready psql)
    packages=(postgresql odbc-postgresql odbcinst)
}

prepare_postgresql() {
    "${as_server[@]}" initdb -D "$folder/data" -U admin -A trust -E UTF8 --locale=C --no-sync
}

start_postgresql() {
    "${as_server[@]}" postgres -D "$folder/data" -p "$1" -k "$folder" \
        -c listen_addresses=127.0.0.1 -c fsync=off \
        >"$folder/log" 2>&1 &
    server=$!
    await pg_isready -h "$folder" -p "$1" &&
        psql -q -h "$folder" -p "$1" -U admin postgres <<'END'
CREATE ROLE "WWWappsOrvane" LOGIN;
CREATE DATABASE orvane OWNER "WWWappsOrvane";
END
}

describe_mariadb() {
    driver="MariaDB Unicode"
    user=mysql
    end=KILL
    programs=(mariadb-install-db mariadbd mariadb-admin mariadb)
    packages=(mariadb-server odbc-mariadb odbcinst)
}

prepare_mariadb() {
    "${as_server[@]}" mariadb-install-db --no-defaults --datadir="$folder/data" --skip-test-db \
        --auth-root-authentication-method=normal
}

start_mariadb() {
    # A starting server deletes what an earlier one left in its temporary folder, and would delete
    # the tables of one that runs beside it.
    "${as_server[@]}" mkdir -p "$folder/data/temporary"
    "${as_server[@]}" mariadbd --no-defaults --datadir="$folder/data" --socket="$folder/socket" \
        --tmpdir="$folder/data/temporary" \
        --pid-file="$folder/pid" --port="$1" --bind-address=127.0.0.1 --skip-name-resolve \
        --innodb-flush-log-at-trx-commit=0 --innodb-buffer-pool-size=32M \
        >"$folder/log" 2>&1 &
    server=$!
    await mariadb-admin --no-defaults -S "$folder/socket" -u root ping &&
        mariadb --no-defaults -S "$folder/socket" -u root <<'END'
CREATE DATABASE orvane;
CREATE USER 'WWWappsOrvane'@'127.0.0.1';
GRANT ALL ON orvane.* TO 'WWWappsOrvane'@'127.0.0.1';
END
}

# write_ini PORT: the data source, and one whose driver takes bytes.
write_ini() {
    local source
    for source in "Orvane $driver" "OrvaneAnsi PostgreSQL ANSI"; do
        printf '[%s]\nDriver = %s\nServer = 127.0.0.1\nPort = %s\nDatabase = orvane\n\n' \
            "${source%% *}" "${source#* }" "$1"
    done
}

# Repeats a command until it succeeds; fails once the server is gone or a minute have passed.
await() {
    local i
    for ((i = 0; i < 1200; i++)); do
        "$@" >/dev/null 2>&1 && return
        kill -0 "$server" 2>/dev/null || return 1
        sleep 0.05
    done
    return 1
}

free_port() {
    local port
    while :; do
        port=$((RANDOM % 20000 + 30000))
        (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || break
    done
    echo "$port"
}

stop() {
    [[ -n $server ]] || return
    kill -"$end" "$server" 2>/dev/null
    wait "$server" 2>/dev/null
    server=
}

kind=${1:-}
case $kind in
    postgresql | mariadb) shift ;;
    *) echo "usage: with-server.sh postgresql|mariadb COMMAND..." >&2 && exit 2 ;;
esac
"describe_$kind"
for program in "${programs[@]}"; do
    command -v "$program" >/dev/null || skip "$program is missing"
done
odbcinst -q -d -n "$driver" >/dev/null 2>&1 || skip "the ODBC driver '$driver' is missing"

# Servers refuse to run as root. The kernel ends them should this script be killed.
as_server=(setpriv --pdeathsig="$end")
((EUID != 0)) || as_server+=(--reuid="$user" --regid="$user" --clear-groups)

server=
folder=$(mktemp -d)
trap 'stop; rm -rf "$folder"' EXIT
trap 'exit 130' INT TERM HUP
((EUID != 0)) || chown "$user" "$folder"

"prepare_$kind" >"$folder/prepare" 2>&1 || {
    cat "$folder/prepare"
    exit 1
}
# Somebody else may take the port first.
for ((attempt = 1; ; attempt++)); do
    port=$(free_port)
    "start_$kind" "$port" && break
    stop
    ((attempt < 3)) || {
        cat "$folder/log"
        exit 1
    }
done
write_ini "$port" >"$folder/odbc.ini"

export HEADERDTC_SERVER=$kind
export HEADERDTC_SERVER_INI=$folder/odbc.ini
export HEADERDTC_SERVER_STOP="kill -$end $server"
# That driver keeps a buffer of each session whose texts may be many statements.
echo "leak:libmaodbc.so" >"$folder/leaks"
export LSAN_OPTIONS=suppressions=$folder/leaks:print_suppressions=0
"$@"
