# Private servers: a copy of PostgreSQL with the extension in it, and clusters in a directory of their own. PostgreSQL
# finds its files from where its programs are, so nothing is installed into the machine's server.

version=15
places=$(mktemp -d /tmp/tessara_servers.XXXXXX)
server=$places/lib/postgresql/$version
share=$places/share/postgresql/$version
clusters=()
export PATH=$server/bin:$PATH PGHOST=$places PGUSER=postgres PGDATABASE=postgres PSQLRC=/dev/null PGOPTIONS=

# PostgreSQL doesn't run as root.
as_server() {
    if ((EUID == 0)); then runuser -u postgres -- "$@"; else "$@"; fi
}

install_server() {
    mkdir -p "$places"/{lib,share}/postgresql
    cp -r "/usr/lib/postgresql/$version" "$places/lib/postgresql/"
    cp -r "/usr/share/postgresql/$version" "$places/share/postgresql/"
    cmake --install "$tree" --component postgresql --prefix "$places/install" >/dev/null
    cp -r "$places/install/lib/postgresql/$version/." "$server"
    cp -r "$places/install/share/postgresql/$version/." "$share"
    ((EUID != 0)) || chown postgres "$places"
    chmod 755 "$places"
}

# start_cluster PORT [SETTING...]
start_cluster() {
    local port=$1 setting
    shift
    as_server "$server/bin/initdb" -D "$places/$port" -U postgres -A trust -E UTF8 --locale=C.UTF-8 -N >/dev/null
    for setting in "port = $port" "unix_socket_directories = '$places'" "listen_addresses = ''" "fsync = off" \
        "max_wal_size = 8GB" "$@"; do
        echo "$setting"
    done | as_server tee -a "$places/$port/postgresql.conf" >/dev/null
    clusters+=("$port")
    control "$port" start
}

# control PORT start|stop|restart
control() {
    as_server env ${server_preload:+LD_PRELOAD=$server_preload} "$server/bin/pg_ctl" -D "$places/$1" -l "$places/$1/log" -w -s -m fast "${@:2}"
}

stop_clusters() {
    local port
    for port in "${clusters[@]}"; do
        control "$port" stop -m immediate 2>/dev/null || true
    done
    rm -rf "$places"
}
trap stop_clusters EXIT
