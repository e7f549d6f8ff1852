"""A whole game against the computer, played only through the accessibility bus as a screen
reader would: no face-down value is readable anywhere in the tree or in its events, every new
prompt is announced once, the focus is on the board at each of the player's turns, and a Toggle
on an option reaches the settings file. The headless driver plays the same game beside it with
the same seed, so the test knows the computer's hidden cards.

Usage: accessibility_test.py PROGRAM (inside a D-Bus session and an X server). With
BQ_A11Y_PAUSE=SECONDS it waits that long after each action, so a screen reader listening on the
same bus keeps up and its log shows what a player would hear."""

import os
import re
import subprocess
import sys
import tempfile
import time

import pyatspi
from gi.repository import GLib

SEED = "11"
SETTINGS = "[Options]\nSetFastMode=2\nSetLearnMode=2\nSetTakem=1\n"
RESULTS = {"You win. Click here to continue.": "cmdAWins",
           "Computer wins. Click here to continue.": "cmdCWins",
           "Game ends in a tie. Click here to continue.": "cmdBothWin"}
PAUSE = float(os.environ.get("BQ_A11Y_PAUSE", "0"))
failures = []


def check(ok, what):
    if not ok:
        failures.append(what)
        print("FAIL:", what)


class Mirror:
    """The headless driver fed the same clicks: it knows what the window hides."""

    def __init__(self, program, settings):
        self.p = subprocess.Popen([program, "--headless", "--settings", settings, "--seed", SEED],
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def click(self, name):
        self.p.stdin.write("click %s\n" % name)

    def get(self, field):
        self.p.stdin.write("get %s\n" % field)
        self.p.stdin.flush()
        while True:
            line = self.p.stdout.readline()
            if not line:
                raise RuntimeError("the headless driver ended")
            if line.startswith(field + "="):
                return [int(v) for v in line.split("=", 1)[1].split()]

    def show(self, name):
        """The control's caption if it is visible, else None."""
        self.p.stdin.write("show %s\n" % name)
        self.p.stdin.flush()
        while True:
            line = self.p.stdout.readline()
            if not line:
                raise RuntimeError("the headless driver ended")
            m = re.match(re.escape(name) + r' caption="(.*)" visible=(\d)', line)
            if m:
                return m.group(1) if m.group(2) == "1" else None

    def close(self):
        self.p.stdin.close()
        self.p.wait(timeout=10)


class Bus:
    """The program's accessible tree and the events it sends."""

    def __init__(self):
        self.events = []
        for kind in ("object:state-changed:showing", "object:state-changed:focused",
                     "object:property-change:accessible-name",
                     "object:property-change:accessible-description", "object:text-changed"):
            pyatspi.Registry.registerEventListener(self.heard, kind)
        self.app = None

    def heard(self, event):
        try:
            self.events.append((event.type, event.source, event.source.getRoleName(),
                                event.detail1, str(event.any_data)))
        except Exception:  # a node gone while the event travelled
            pass

    def pump(self, seconds):
        context = GLib.MainContext.default()
        end = time.time() + seconds
        while time.time() < end:
            while context.pending():
                context.iteration(False)
            time.sleep(0.005)

    def settle(self):
        """Until the program has been quiet for a moment."""
        self.pump(PAUSE)
        count, quiet_since, end = -1, time.time(), time.time() + 5
        while time.time() < end:
            self.pump(0.03)
            if len(self.events) != count:
                count, quiet_since = len(self.events), time.time()
            elif time.time() - quiet_since > 0.15:
                return

    def find_app(self):
        for _ in range(200):
            for app in pyatspi.Registry.getDesktop(0):
                if app is not None and app.name == "Bramblequay":
                    self.app = app
                    return
            time.sleep(0.05)
        raise RuntimeError("the program never showed on the accessibility bus")

    def nodes(self):
        out = []

        def walk(node):
            out.append(node)
            for child in node:
                walk(child)
        walk(self.app)
        return out


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def press(node, mirror, model_name):
    action = node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    index = names.index("Toggle") if "Toggle" in names else names.index("Press")
    action.doAction(index)
    mirror.click(model_name)


def texts(node):
    """Everything a client can read of a node."""
    out = [node.name or "", node.description or ""]
    try:
        text = node.queryText()
        out.append(text.getText(0, -1))
    except NotImplementedError:
        pass
    return out


# Words that name slots, counts and keys rather than cards.
NOT_CARDS = re.compile(r"\b(?:cards?|slot) \d+(?: and \d+)?|\b\d+ moves?\b|\(F\d+\)|"
                       r"\d+ cards in a Stack instead of \d+|"
                       r"Move list \d+|"
                       r"\d+ from the Discard Pile|\d+ discarded")  # the Discard Pile is face up


def secret_numbers(strings, secret):
    """The hidden values the strings name, with the words that name them."""
    found = set()
    for s in strings:
        for n in {int(n) for n in re.findall(r"\b\d+\b", NOT_CARDS.sub("", s))} & secret:
            found.add((n, s))
    return found


# Numbers that are no cards: Learn Mode ranges and judgements, move counts.
COUNTERS = ("Range of", "Judgement of", "Your moves", "Opponent's moves")


def value(node):
    return int(re.match(r".*?: (\d+)", node.name).group(1))


def main(program):
    folder = tempfile.mkdtemp(prefix="bq-a11y-")
    paths = [os.path.join(folder, name) for name in ("window.ini", "mirror.ini")]
    for path in paths:
        with open(path, "w") as f:
            f.write(SETTINGS)
    env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
    started = time.time()
    game = subprocess.Popen([program, "--settings", paths[0], "--seed", SEED], env=env)
    mirror = Mirror(program, paths[1])
    bus = Bus()
    try:
        bus.find_app()
        bus.settle()
        nodes = bus.nodes()
        by_name = {}
        for node in nodes:
            by_name.setdefault((node.getRoleName(), node.name), node)
        prompt = next(n for n in nodes if n.getRoleName() == "notification")
        piles = {p: next(n for n in nodes if n.getRoleName() == "push button" and
                         n.name.startswith(p + ":")) for p in ("Discard Pile", "Draw Pile")}
        # Found by place, not by name: names change with the cards.
        mine = [n for n in nodes if n.getRoleName() == "push button" and
                n.name.startswith("Your card ")]
        theirs = [n for n in nodes if n.getRoleName() == "push button" and
                  n.name.startswith("Computer's card ")]
        check(len(mine) == 20 and len(theirs) == 20, "twenty card buttons a side")

        # Controls that say what they are.
        for name in ("Fast Mode On", "Fast Mode Off", "Learn Mode On", "Learn Mode Off",
                     "Computer", "Human"):
            check(("radio button", name) in by_name, "a radio button named " + name)
        identifiers = [n.name for n in nodes if re.search(r"^(lbl|cmd|chk|opt|mnu)|\.Panel\(", n.name)]
        check(not identifiers, "nodes named after identifiers: %s" % identifiers[:3])
        check(by_name[("menu item", "Fast Mode Off")].getState().contains(pyatspi.STATE_CHECKED),
              "a checked menu item shows its check mark")

        # Toggle, as a screen reader does it, on an option and a mode.
        press(by_name[("check box", "Smackem")], mirror, "chkSmackem")
        press(by_name[("radio button", "Fast Mode On")], mirror, "optFastModeOn")
        bus.settle()
        check(by_name[("menu item", "Fast Mode On")].getState().contains(pyatspi.STATE_CHECKED),
              "Fast Mode turned on by Toggle")
        press(by_name[("radio button", "Fast Mode Off")], mirror, "optFastModeOff")
        bus.settle()
        check(by_name[("check box", "Smackem")].getState().contains(pyatspi.STATE_CHECKED),
              "Smackem checked by Toggle")

        press(by_name[("push button", "Start New Game")], mirror, "cmdNew")
        said = prompt.queryText().getText(0, -1)
        seen = set()  # every card value ever shown face up
        turns = smackem_done = 0
        quit_button = by_name[("push button", "Quit This Game")]

        play_name = "Click here to complete your move"

        def after_action(what, everywhere=False):
            """Settles, then checks the announcements of the prompt and every readable value."""
            nonlocal said
            bus.settle()
            now = prompt.queryText().getText(0, -1)
            for node in mine + [piles["Discard Pile"], piles["Draw Pile"]]:
                m = re.search(r": (\d+)", node.name)
                if m and showing(node):
                    seen.add(int(m.group(1)))
            # The computer's cards that the window shows face up, as the driver reports them.
            for k, node in enumerate(theirs[:10], 1):
                face = mirror.show("lblCardB(%d)" % k)
                shown = face.strip() if face is not None else ""
                check(node.name.split(", ")[0].endswith(": " + (shown or "face down")),
                      "%s, where the window shows %r" % (node.name, shown or "a back"))
                if shown:
                    seen.add(int(shown))
            secret = set(mirror.get("Stacks(2)")) - seen
            check(not any(k.endswith("focused") and d == 1 and s.name == "Quit This Game"
                          for k, s, _, d, _ in bus.events), "after %s Quit took the focus" % what)
            told = []
            for kind, source, role, detail, data in bus.events:
                if role == "notification" and kind.endswith("showing") and detail == 1:
                    told.append(source.name)
                elif kind.endswith("focused") and detail == 1 and source.description == now:
                    told.append(now)
            if now != said:
                check(told.count(now) == 1 and len(told) == 1,
                      "after %s the prompt %r was announced %d times" % (what, now, len(told)))
            said = now
            # Events carry a string, or the node itself as "[role | name]".
            carried = [re.sub(r"^\[[a-z ]+ \| (.*)\]$", r"\1", d, flags=re.S)
                       for (k, _, _, _, d) in bus.events if "change" in k]
            leaked = secret_numbers([c for c in carried if not c.startswith(COUNTERS)], secret)
            bus.events.clear()
            for node in nodes if everywhere else []:
                if node.name.startswith(COUNTERS):
                    continue
                if node.description.startswith(("Key ", "Shift+")):
                    continue
                leaked |= secret_numbers(texts(node), secret)
            check(not leaked, "after %s hidden values readable: %s" % (what, sorted(leaked)))
            return now

        after_action("New Game", True)
        while turns < 200:
            result = [r for r in RESULTS if showing(by_name[("push button", r)])]
            if result:
                break
            turns += 1
            check(piles["Discard Pile"].getState().contains(pyatspi.STATE_FOCUSED),
                  "turn %d: the focus is on the Discard Pile" % turns)
            check(not quit_button.getState().contains(pyatspi.STATE_FOCUSED), "Quit has the focus")
            smackem = by_name[("push button", "Smackem")]
            if turns == 3 and showing(smackem) and smackem.getState().contains(pyatspi.STATE_ENABLED):
                press(smackem, mirror, "cmdSetupSmackemA")
                after_action("Smackem")
                check(smackem.getState().contains(pyatspi.STATE_PRESSED), "a set-up under way shows")
                press(theirs[0], mirror, "lblCardB(1)")
                press(theirs[1], mirror, "lblCardB(2)")
                after_action("picking the computer's cards")
                done = next(n for n in nodes if n.name.startswith("Click 2 of your opponent's"))
                press(done, mirror, "cmdSmackemA")
                after_action("completing Smackem", True)
                smackem_done = 1
                continue
            press(piles["Draw Pile"], mirror, "lblDrawPile")
            after_action("looking at the Draw Pile")
            drawn = value(piles["Draw Pile"])
            slot = min(max((drawn + 9) // 10, 1), 10)
            old = value(mine[slot - 1])
            press(mine[slot - 1], mirror, "lblCardA(%d)" % slot)
            after_action("choosing a card")
            play = next(n for n in nodes if n.name == play_name and showing(n))
            check(play.description == "Put %d in place of your %s" % (drawn, old),
                  "the complete-move button says " + repr(play.description))
            press(play, mirror, "cmdPlayA")
            after_action("completing the move", True)
            mine_now = [value(n) for n in mine[:10]]
            check(mine_now == mirror.get("Stacks(1)"), "the window and the driver play one game")
        check(result, "the game ended within 200 turns")
        check(smackem_done == 1, "Smackem was used")
        print("%d turns, %d seconds" % (turns, round(time.time() - started)))
        press(by_name[("push button", result[0])], mirror, RESULTS[result[0]])
        bus.settle()
        press(by_name[("menu item", "Exit Program")], mirror, "mnuFileExit")
        game.wait(timeout=10)
        with open(paths[0]) as f:
            stored = f.read()
        check("SetSmackem=1" in stored, "Smackem, toggled by the screen reader, is in the settings file")
    finally:
        if game.poll() is None:
            game.kill()
        mirror.close()
    if failures:
        print("%d failures" % len(failures))
        return 1
    print("passed")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
