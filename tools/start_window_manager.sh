#!/bin/sh
# Starts a small window manager on $DISPLAY and returns once it is at work: a window that is shown while it starts may
# wait for its first painting for ever.
starting=$(mktemp)
openbox --startup "rm -f $starting" >/dev/null 2>&1 &
for _ in $(seq 100); do
    [ -e "$starting" ] || exit 0
    sleep 0.1
done
echo "The window manager does not start." >&2
exit 1
