"""The end of a check: each fault on a line of its own, then a summary; the
exit status is 1 when there are faults."""
import sys


def verdict(faults, failed, passed):
    for f in faults:
        print(f)
    print(failed if faults else passed, flush=True)
    sys.exit(1 if faults else 0)
