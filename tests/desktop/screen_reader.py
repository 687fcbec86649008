#!/usr/bin/python3
"""Meets the program as a screen reader does: over the bus of assistive technology, window by window.

screen_reader.py PROGRAM INSTALLATION; ends with 77 where there is no such bus. Every control must have a name and a
role, drop-down lists must have a label, and the overview must tell its figures and pictures.
"""

import os
import re
import subprocess
import sys
import time

SKIPPED = 77
Patience = 30  # seconds


def skip(reason):
    print("Skipped:", reason)
    sys.exit(SKIPPED)


try:
    import pyatspi
except ImportError as error:
    skip(f"the bus of assistive technology cannot be asked: {error}")


def waited_for(condition):
    end = time.monotonic() + Patience
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.1)
    return None


def program_on_the_bus(pid):
    try:
        desktop = pyatspi.Registry.getDesktop(0)
        return next((app for app in desktop if app and app.get_process_id() == pid), None)
    except Exception as error:  # the bus tells its absence in several ways
        skip(f"there is no bus of assistive technology: {error}")


def below(node):
    for child in node:
        if child is not None:
            yield child
            yield from below(child)


def is_shown(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def labels_of(node):
    return [
        relation.getTarget(i).name
        for relation in node.getRelationSet()
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY
        for i in range(relation.getNTargets())
    ]


def faults_in(window):
    """What a user who sees nothing could not use."""
    faults, controls = [], 0
    nameless = (pyatspi.ROLE_UNKNOWN, pyatspi.ROLE_INVALID, pyatspi.ROLE_FILLER, pyatspi.ROLE_PANEL)
    for node in below(window):
        state = node.getState()
        in_table = node.parent.getRole() in (pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE_TABLE, pyatspi.ROLE_LIST)
        in_combo = node.parent.getRole() == pyatspi.ROLE_COMBO_BOX
        if not is_shown(node) or not state.contains(pyatspi.STATE_FOCUSABLE) or in_table or in_combo:
            continue
        controls += 1
        if node.getRole() in nameless:
            faults.append(f"{node.name!r} has the role {node.getRoleName()!r}")
        if node.getRole() == pyatspi.ROLE_COMBO_BOX and not any(labels_of(node)):
            faults.append(f"the list with {node.name!r} has no label")
        if not node.name.strip():
            faults.append(f"a {node.getRoleName()} in {window.name!r} has no name")
    return faults, controls


def press(window, name):
    button = next(
        (node for node in below(window) if node.getRole() == pyatspi.ROLE_PUSH_BUTTON and node.name == name and is_shown(node)),
        None,
    )
    if button is None:
        return False
    action = button.queryAction()
    return any(action.getName(i) == "Press" and action.doAction(i) for i in range(action.nActions))


def window_of(program, title):
    return waited_for(lambda: next((w for w in program if w and title in w.name and is_shown(w)), None))


def told_by_the_overview(window):
    """The figure of the one run, and both pictures with their figures; what is missing of them."""
    names = lambda role: [node.name for node in below(window) if node.getRole() == role]
    figure = re.compile(r"^\d+\.\d{3}")
    if not waited_for(lambda: any(figure.match(name) for name in names(pyatspi.ROLE_TABLE_CELL))):
        return [f"the overview tells no figure: {names(pyatspi.ROLE_TABLE_CELL)}"]
    faults = []
    if not any("Hamburg" in name for name in names(pyatspi.ROLE_TABLE_COLUMN_HEADER)):
        faults.append(f"no column is headed Hamburg: {names(pyatspi.ROLE_TABLE_COLUMN_HEADER)}")
    charts = [node for node in below(window) if node.getRole() == pyatspi.ROLE_CHART]
    waited_for(lambda: all("alue" in chart.description for chart in charts))
    if len(charts) != 2:
        faults.append(f"{len(charts)} pictures")
    for chart in charts:
        if "Values: " not in chart.description and " values. " not in chart.description:
            faults.append(f"the picture {chart.name!r} tells {chart.description!r}")
    return faults


def main():
    environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
    process = subprocess.Popen([sys.argv[1], sys.argv[2]], env=environment)
    try:
        program = waited_for(lambda: program_on_the_bus(process.pid))
        if program is None:
            skip("the program is not on the bus of assistive technology")
        start = window_of(program, "ORVEL")
        faults, controls = faults_in(start)
        for title, fewest in (("Overview", 15), ("Plans", 10)):
            window = window_of(program, title) if press(start, title) else None
            if window is None:
                faults.append(f"{title} does not open")
                continue
            if title == "Overview":
                faults += told_by_the_overview(window)
            more, met = faults_in(window)
            faults += more + ([] if met >= fewest else [f"only {met} controls in {title}"])
            controls += met
        print("\n".join(faults) or f"{controls} controls, all with name and role")
        return 1 if faults else 0
    finally:
        process.terminate()
        process.wait()


sys.exit(main())
