"""Walks both windows of Korvane through the AT-SPI bus, as a screen reader
sees them: every control that takes input has a name of its own and the right
role, heading labels are related to what they head, scroll bars and sliders
report the values the program holds and announce changes, message boxes say
their text, and the focus the program moves is seen.

Run inside a D-Bus session of its own: dbus-run-session -- accessibility_walk.py KORVANE
It starts an X server of its own. Every wait is bounded by one deadline, so a
hang ends as a failure."""

import os
import subprocess
import sys
import tempfile
import time

import pyatspi
from gi.repository import GLib

DEADLINE = time.monotonic() + 45

MAIN_INPUTS = {
    "Browse for your high detail KOB file (LOD 0)": "push button",
    "Path of the LOD 0 file": "text",
    "Browse for the TGA Texture Map file for your object": "push button",
    "TextureMap": "text",
    "Browse for your low detail KOB file (LOD 1)": "push button",
    "Path of the LOD 1 file": "text",
    "Save As": "push button",
    "View Help": "push button",
    "Exit": "push button",
    "Add ColorKey?": "check box",
    "Add LOD 1?": "check box",
    "Advanced...": "push button",
}
for colour in ("red", "green", "blue"):
    MAIN_INPUTS.update({f"ColorKey {colour}": "text", f"ColorKey {colour} arrows": "scroll bar",
                        f"ColorKey {colour} slider": "slider"})
SETTINGS_INPUTS = {"OK": "push button", "Use Default": "push button", "AutoLOD#0": "text", "AutoLOD#1": "text"}
# Heading label -> the control it names, once the source below is open.
MAIN_LABELS = {"TextureMap:": "TextureMap", "ColorKey:": "ColorKey red", "R": "ColorKey red",
               "G": "ColorKey green", "B": "ColorKey blue", "Number Of LOD:": "2"}
SETTINGS_LABELS = {"AutoLOD#0:": "AutoLOD#0", "AutoLOD#1:": "AutoLOD#1"}

# Two LODs, so that the settings window opens.
SOURCE = ("[Material - 0]\nTextureMap=tower.tga\nColorKey=10,20,30\n[LOD Information]\nNumberOfLOD=2\n"
          "UseAutoLOD=T\nAutoLOD#0=0.25\nAutoLOD#1=0.0625\n[LOD 0]\nNumberOfSurfaces=1\n[LOD 1]\n")

failures = []
events = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAIL:", what, flush=True)


def wait_for(what, probe):
    """Polls probe, letting bus events in, until it gives something true or the deadline passes."""
    while True:
        GLib.MainContext.default().iteration(False)
        try:
            result = probe()
        except GLib.GError:  # the object went away meanwhile
            result = None
        if result:
            return result
        if time.monotonic() > DEADLINE:
            raise TimeoutError("timed out waiting for " + what)
        time.sleep(0.02)


def nodes(root):
    yield root
    for child in root:
        if child is not None:
            yield from nodes(child)


def find(root, name, role=None):
    return next((n for n in nodes(root) if n.name == name and role in (None, n.getRoleName())), None)


def states(node):
    return {s.value_nick for s in node.getState().getStates()}


def press(node):
    action = node.queryAction()
    action.doAction(next(i for i in range(action.nActions) if action.getName(i) in ("Press", "Toggle")))


def related(node, relation):
    return [r.getTarget(i).name for r in node.getRelationSet() if r.getRelationType() == relation
            for i in range(r.getNTargets())]


def text(node):
    return node.queryText().getText(0, -1)


def value(node):
    return node.queryValue().currentValue


def check_window(window, inputs, labels, groups):
    taking = [n for n in nodes(window) if "focusable" in states(n)]
    names = [n.name for n in taking]
    check(all(names), f"{window.name}: a control without a name")
    check(len(set(names)) == len(names), f"{window.name}: names used twice: {sorted(names)}")
    heard = {n.name: n.getRoleName() for n in taking}
    check(heard == inputs, f"{window.name}: controls heard as {heard}")
    panels = sorted(n.name for n in nodes(window) if n.getRoleName() == "panel")
    check(panels == sorted(groups), f"{window.name}: groups {panels}")
    for label, target in labels.items():
        node = find(window, label, "label")
        check(node is not None and target in related(node, pyatspi.RELATION_LABEL_FOR),
              f"{label} is no label for {target}")
        field = find(window, target)
        # Qt finds a field's labels among its siblings; txtTextureMap lies outside the frame of its label.
        if node is not None and field is not None and field.parent == node.parent:
            check(label in related(field, pyatspi.RELATION_LABELLED_BY), f"{target} is not labelled by {label}")


def channels(window):
    return [(text(find(window, f"ColorKey {c}")), value(find(window, f"ColorKey {c} arrows")),
             value(find(window, f"ColorKey {c} slider"))) for c in ("red", "green", "blue")]


def swatch(window):
    return find(window, "ColorKey colour", "label").description


def top_window(app, role, name=None):
    return next((w for w in app if w.getRoleName() == role and name in (None, w.name) and "showing" in states(w)),
                None)


def walk(app, source):
    main = wait_for("the main window", lambda: top_window(app, "frame", "Korvane"))
    check_window(main, MAIN_INPUTS, {}, ["Source KOB File: LOD 0", "LOD 0 Data", "Source KOB File: LOD 1", ""])
    check(channels(main) == [("128", 128, 128)] * 3, f"first screen: channels {channels(main)}")
    check(swatch(main) == "red 128, green 128, blue 128", f"first screen: swatch {swatch(main)!r}")
    for frame in ("LOD 0 Data", "Source KOB File: LOD 1"):
        awake = [n.name for n in nodes(find(main, frame, "panel")) if "sensitive" in states(n)]
        check(not awake, f"in the disabled frame {frame}: {awake} reported enabled")

    press(find(main, "Browse for your high detail KOB file (LOD 0)"))
    dialog = wait_for("the file dialog", lambda: top_window(app, "dialog"))
    find(dialog, "File name:", "text").queryEditableText().setTextContents(source)
    press(find(dialog, "Open", "push button"))
    wait_for("the source's path", lambda: text(find(main, "Path of the LOD 0 file")) == source)
    check_window(main, MAIN_INPUTS, MAIN_LABELS, ["Source KOB File: LOD 0", "LOD 0 Data",
                                                  "Source KOB File: LOD 1", ""])
    check(channels(main) == [("10", 10, 10), ("20", 20, 20), ("30", 30, 30)], f"loaded: channels {channels(main)}")

    events.clear()
    # The red bar moved through the bus: field, slider and swatch follow, and readers hear it.
    find(main, "ColorKey red arrows").queryValue().currentValue = 200
    wait_for("red at 200", lambda: channels(main)[0] == ("200", 200, 200))
    wait_for("the swatch", lambda: swatch(main) == "red 200, green 20, blue 30")
    for name, kind in (("ColorKey red arrows", "value"), ("ColorKey red slider", "value"),
                       ("ColorKey colour", "description")):
        wait_for(f"the {kind} change of {name}", lambda: (f"object:property-change:accessible-{kind}", name) in events)

    # A field emptied through the bus is empty for the program too: Save As refuses it and moves the focus there.
    find(main, "ColorKey green").queryEditableText().setTextContents("")
    events.clear()
    press(find(main, "Save As"))
    box = wait_for("the message box", lambda: top_window(app, "alert"))
    check(box.description == "Please complete all ColorKey entries", f"message box says {box.description!r}")
    press(find(box, "OK", "push button"))
    wait_for("the focus on the empty green field",
             lambda: ("object:state-changed:focused", "ColorKey green") in events)

    press(find(main, "Advanced..."))
    settings = wait_for("the settings window", lambda: top_window(app, "dialog", "Advanced Settings"))
    check("modal" in states(settings), f"settings window states {states(settings)}")
    check_window(settings, SETTINGS_INPUTS, SETTINGS_LABELS, ["LOD Transition Point"])
    press(find(settings, "OK", "push button"))
    wait_for("the settings window to go", lambda: top_window(app, "dialog") is None)
    press(find(main, "Exit"))


def main():
    def heard(event):
        if event.detail1 or "property-change" in event.type:
            events.append((event.type, event.source.name))

    pyatspi.Registry.registerEventListener(heard, "object:property-change:accessible-value",
                                           "object:property-change:accessible-description",
                                           "object:state-changed:focused")
    with tempfile.TemporaryDirectory() as scratch:
        source = os.path.join(scratch, "tower.kob")
        with open(source, "w", newline="\r\n") as file:
            file.write(SOURCE)
        # The server picks a free display and writes its number down the pipe.
        ready, told = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(told), "-screen", "0", "1280x1024x24", "-nolisten",
                                   "tcp"], pass_fds=[told], stderr=subprocess.DEVNULL)
        os.close(told)
        with os.fdopen(ready) as pipe:
            display = ":" + pipe.readline().strip()
        env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb", DISPLAY=display,
                   XDG_CONFIG_HOME=scratch, HOME=scratch)
        program = subprocess.Popen([sys.argv[1]], env=env)
        try:
            app = wait_for("Korvane on the bus", lambda: next(
                (a for a in pyatspi.Registry.getDesktop(0) if a is not None and a.get_process_id() == program.pid),
                None))
            walk(app, source)
            status = program.wait(timeout=max(1, DEADLINE - time.monotonic()))
            check(status == 0, f"Korvane ended with {status}")
        except (TimeoutError, subprocess.TimeoutExpired) as error:
            check(False, str(error))
        finally:
            for process in (program, server):
                process.kill()
                process.wait()
    print(f"{len(failures)} failure(s)" if failures else "every control speaks")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
