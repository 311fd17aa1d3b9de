#!/usr/bin/env bash
# Runs one end-to-end case of kel-trace and compares what it did with what the
# case expects.
#
# A case is a folder holding:
#   args             the arguments, one per line (an empty line is an empty argument)
#   stdin            optional: fed to standard input (else it is empty)
#   expected_stdout  optional: the exact standard output (else none)
#   expected_stderr  optional: the exact standard error (else none)
#   expected_status  optional: the exit status (else 0)
#   setup            optional: an executable run first, in a scratch copy of the
#                    folder; its exit status 77 skips the case (CTest shows why)
# The tool runs inside the folder under the name "kel-trace", so relative paths
# and the program name in messages are the same on every machine.
set -u
binary=$1
case_dir=$2
cd "$case_dir" || exit 2

scratch=$(mktemp -d)
actual=$(mktemp -d)
trap 'chmod -R u+rwX "$scratch"; rm -rf "$scratch" "$actual"' EXIT
if [ -x setup ]; then
    cp -a . "$scratch" && cd "$scratch" || exit 2
    ./setup || exit $?
fi

mapfile -t args < args
input=/dev/null
[ -f stdin ] && input=stdin
expected_status=0
[ -f expected_status ] && expected_status=$(< expected_status)

(exec -a kel-trace "$binary" "${args[@]}" < "$input" > "$actual/stdout" 2> "$actual/stderr")
status=$?

failed=0
compare() { # expected-file actual-file what
    if [ -f "$1" ]; then
        diff -u --label "expected $3" --label "actual $3" "$1" "$2" || failed=1
    elif [ -s "$2" ]; then
        echo "unexpected $3:"; cat "$2"; failed=1
    fi
}
compare expected_stdout "$actual/stdout" stdout
compare expected_stderr "$actual/stderr" stderr
if [ "$status" != "$expected_status" ]; then
    echo "exit status $status, expected $expected_status"
    failed=1
fi
exit $failed
