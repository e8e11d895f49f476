#!/usr/bin/env bash
# on_a_server.sh LOCK COMMAND…: runs the command on a PostgreSQL server of its own, which is thrown away afterwards. Servers
# start one after another, since two that begin at once may choose one port; the lock is let go as soon as this one is up.
set -euo pipefail
exec 9>"$1"
shift
flock 9
exec pg_virtualenv -t -o fsync=off -o max_connections=200 bash -c 'flock -u 9; exec "$@" 9>&-' on_a_server "$@"
