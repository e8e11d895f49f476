#!/usr/bin/env bash
# on_a_server.sh COMMAND…: runs the command on a PostgreSQL server of its own, which is thrown away afterwards. Its port is a
# random one: of those in a row, another test's server could take one that a test lets go while it restarts its own.
set -euo pipefail

is_taken() { # PORT
    (: <"/dev/tcp/127.0.0.1/$1") 2>/dev/null
}

port=$((20000 + RANDOM % 10000))
while is_taken "$port"; do
    port=$((20000 + RANDOM % 10000))
done
exec pg_virtualenv -t -c "-p $port" -o fsync=off -o max_connections=200 "$@"
