"""What a screen reader hears: prints the events of programs on the accessibility bus, and on demand
what it finds in the program named Airlume. One JSON object a line, in both directions:

{"tree": true}                              -> {"tree": {role, name, description, value, states,
                                                         children}}, null while there is no program
{"do": action, "role": ..., "name": ...}    -> {"done": true or false}
an event                                    -> {"event": type, "role": ..., "name": ..., "now": ...}
"""
import json
import sys

try:
    import pyatspi
    from gi.repository import GLib
except ImportError as missing:
    print(json.dumps({"missing": str(missing)}), flush=True)
    sys.exit(0)

HEARD = (
    "object:state-changed:focused",
    "object:state-changed:checked",
    "object:property-change:accessible-name",
    "object:property-change:accessible-description",
    "object:property-change:accessible-value",
)


def say(**what):
    print(json.dumps(what), flush=True)


def program():
    for application in pyatspi.Registry.getDesktop(0):
        if application is not None and application.name == "Airlume":
            return application
    return None


def children(node):
    for number in range(node.childCount):
        child = node.getChildAtIndex(number)
        if child is not None:
            yield child


def value(node):
    try:
        return node.queryValue().currentValue
    except NotImplementedError:
        return None


def tree(node):
    states = [pyatspi.stateToString(state) for state in node.getState().getStates()]
    return {
        "role": node.getRoleName(),
        "name": node.name,
        "description": node.description,
        "value": value(node),
        "states": states,
        "children": [tree(child) for child in children(node)],
    }


def find(node, role, name):
    if node.getRoleName() == role and node.name == name:
        return node
    for child in children(node):
        found = find(child, role, name)
        if found is not None:
            return found
    return None


def act(wanted, role, name):
    node = find(program(), role, name)
    if node is None:
        return False
    actions = node.queryAction()
    for number in range(actions.nActions):
        if actions.getName(number) == wanted:
            return actions.doAction(number)
    return False


def on_line(source, _condition):
    line = source.readline()
    if not line:
        pyatspi.Registry.stop()
        return False
    asked = json.loads(line)
    try:
        if "tree" in asked:
            found = program()
            say(tree=None if found is None else tree(found))
        else:
            say(done=act(asked["do"], asked["role"], asked["name"]))
    except GLib.Error:
        # Gone while it was looked at.
        say(**({"tree": None} if "tree" in asked else {"done": False}))
    return True


def on_event(event):
    try:
        say(
            event=str(event.type),
            role=event.source.getRoleName(),
            name=event.source.name,
            now=event.detail1,
        )
    except GLib.Error:
        pass


pyatspi.Registry.registerEventListener(on_event, *HEARD)
GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, on_line)
say(listening=True)
pyatspi.Registry.start()
