#!/usr/bin/env python3
"""Sorts the thread sanitizer's reports of a run (the files its log_path option wrote).

Qt and GLib are not built with the sanitizer, so it cannot see the locks with which Qt hands an
event, a queued call's arguments or an object being destroyed from one thread to another. Every
such hand-over is reported as a race. A report is counted as one when
  - one of its two accesses allocates or frees the memory (an object made on one thread and
    used or freed on another, as a queued call's functor, an event, or an object destroyed at
    exit while the other thread disconnects from it under Qt's locks);
  - one of its two stacks copies a queued signal's arguments into an event or posts a call
    (QMetaType::construct or create, callQueued, QMetaObject::invokeMethod);
  - it lies inside Qt's own wait conditions (pthread calls made by QWaitCondition), or both of
    its accesses are made by a Qt library itself (its event lists and containers);
  - both of its places are in the tests, which wait on Qt's semaphore for a blocking call onto
    the link thread and then read what that call wrote;
  - its memory is on the main thread's stack: a variable a test's blocking call wrote, or the
    place where an earlier test's link lived, used by a link thread that has since ended
    (QThread::wait is unseen as well).
Every other report is listed with the two places in this project's code, and makes the exit
status 1: those are the reports a person must read.

    tools/tsan-reports.py SOURCE_DIR REPORT_FILE...
"""
import collections
import re
import sys

source = sys.argv[1].rstrip("/") + "/"
LIFETIME = ("operator new", "operator delete", "free", "malloc", "calloc", "realloc")
HANDOVER = re.compile(r"QMetaType::(construct|create)|QueuedCall\.h|QMetaObject::invokeMethod")
QT_WAITS = re.compile(r"QWaitCondition::|QThread::wait")


def stacks(report):
    """The report's stacks, each a list of frame lines, in order."""
    found, current = [], None
    for line in report.splitlines():
        if re.match(r"^\s+#\d+ ", line):
            if current is None:
                current = []
                found.append(current)
            current.append(line)
        else:
            current = None
    return found


def function(line):
    return re.sub(r"^\s+#\d+ ", "", line).split(" /")[0].split(" <null>")[0]


def own_place(stack):
    """The first frame of a stack in this project's sources (not generated code)."""
    for line in stack:
        match = re.search(re.escape(source) + r"(\S+?:\d+)", line)
        if match and not match.group(1).startswith("build/"):
            return f"{match.group(1)} {function(line)[:70]}"
    return "(inside the libraries) " + function(stack[0])[:60]


def kind(access, report):
    if "Location is stack of main thread" in report:
        return "the main thread's stack: a test's blocking call, or an earlier test's link"
    tops = [function(stack[0]) for stack in access]
    text = "\n".join("\n".join(stack) for stack in access)
    if any(top.startswith(LIFETIME) for top in tops):
        return "an object made on one thread, used or freed on another"
    if HANDOVER.search(text):
        return "a queued call's or signal's arguments, copied on one thread, read on another"
    if any(top.startswith("pthread_") for top in tops) and QT_WAITS.search(text):
        return "inside Qt's wait conditions"
    if all(len(stack) > 1 and re.search(r"\(lib\S+\.so", stack[1]) for stack in access):
        return "inside Qt's own event lists and containers"
    if all(own_place(stack).startswith("tests/") for stack in access):
        return "a test's blocking call onto the link thread, read after it returned"
    return None


explained = collections.Counter()
unexplained = collections.Counter()
for name in sys.argv[2:]:
    with open(name, encoding="utf-8", errors="replace") as file:
        for report in file.read().split("==================\n"):
            if "WARNING: ThreadSanitizer:" not in report:
                continue
            access = stacks(report)[:2]
            reason = kind(access, report)
            if reason:
                explained[reason] += 1
            else:
                unexplained[tuple(own_place(stack) for stack in access)] += 1

print(f"{sum(explained.values()) + sum(unexplained.values())} reports")
for reason, count in explained.most_common():
    print(f"{count:6}  Qt's hand-over, unseen by the sanitizer: {reason}")
for places, count in unexplained.most_common():
    print(f"{count:6}  TO READ: " + "\n          against ".join(places))
sys.exit(1 if unexplained else 0)
