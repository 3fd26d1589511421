#!/bin/sh
# Fails when anything of the project's database outside of its room for SQL speaks SQL or to SQLite itself.
# usage: sql_in_one_room.sh FOLDER-OF-THE-DATABASE
found=$(grep -rnE 'sqlite3|SQLITE_|\b(Statement|Run)\b|"(SELECT|INSERT|UPDATE|DELETE FROM|PRAGMA|BEGIN|CREATE TABLE)' \
    --include='*.cpp' --include='*.h' "$1" | grep -v "^$1/sqlite/")
[ -z "$found" ] && [ -d "$1/sqlite" ] && exit 0
echo "$found"
exit 1
