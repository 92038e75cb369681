"""What every chapter of the journey works with."""

import hands
from passwords import DEMO_PASSWORD
from waiting import wait_for

DEMO_CLIENT = "priya.raman@example.com"
DEMO_BUSINESS = "helen.brandt@example.com"
DEMO_NOTARY = "samuel.adeyemi@example.com"
DEMO_ADMIN = "maya.whitfield@example.com"
# Of the content, under the menu bar.
DEFAULT_SIZE = (1180, 760)


class Stage:
    """The client with its person, the bridge behind it, the tray beside it, the album, and whoever inspects what is
    photographed. `scheme` is "light" or "dark"; `suffix` tells pictures of other conditions apart from the ordinary
    ones; `portal` is there where the client follows the desktop's scheme; `secrets` are the tokens that the client has
    been seen to keep."""

    def __init__(self, client, bridge, album, inspector, tray, scheme, secrets):
        self.client = client
        self.person = client.person
        self.screen = client.screen
        self.bridge = bridge
        self.album = album
        self.tray = tray
        self.inspector = inspector
        self.scheme = scheme
        self.suffix = ""
        self.portal = None
        self.secrets = secrets

    def picture(self, name):
        """Of the main window, with the pointer off it. Whatever is worth a picture must be open to everybody. Where the
        portal is there, in both schemes; what is told to assistive technology is the same in all colours."""
        hands.move(1, 1)
        if not self.portal:
            self._take(name)
            self.inspector.inspect(self.screen, name + self.suffix)
            return
        for scheme in ("dark", "light"):
            self.portal.want_dark(scheme == "dark")
            self.scheme = scheme
            self._take(name)

    def _take(self, name):
        wait_for(lambda: self.album.is_dark(self.client.window) == (self.scheme == "dark"),
                 f"the window to be {self.scheme}")
        self.album.take(f"{name}{self.suffix}-{self.scheme}", self.client.window)

    def open(self, section):
        """Goes to a section through the sidebar and waits until it has loaded."""
        entry = self.person.click("list item", section)
        wait_for(lambda: "selected" in entry.states, f'"{section}" to be selected in the sidebar')
        self.wait_for_section(section)

    def wait_for_section(self, section):
        wait_for(lambda: self.client.wait_for_window().name == section, f'a window titled "{section}"')
        self.wait_until_loaded()

    def wait_until_loaded(self):
        """What says so is an animation to assistive technology."""
        wait_for(lambda: not self.screen.find("animation", None), "the screen to load")

    def rows(self, title):
        """The rows of the list with this title, in their order."""
        listed = self.screen.find("list", title)
        return list(self.screen.find_all("list item", within=listed)) if listed else []

    def enter(self, email):
        """Signs in where the sessions ask for it."""
        self.open("Sessions")
        self.sign_in(email, DEMO_PASSWORD)
        self.screen.wait_gone("password text", "Password")

    def sign_in(self, email, password):
        """On the sign-in screen that is shown."""
        self.person.fill("Email", email)
        self.person.fill_password("Password", password)
        self.person.press_button("Sign In")

    def sign_in_by_keys(self, email, password):
        """The same from the e-mail field on, without the mouse."""
        self.person.fill("Email", email)
        hands.press("Tab")
        hands.write(password)
        hands.press("Return")

    def at_size(self, width, height, chapter):
        """Runs the chapter with the content of the window at another size than its first."""
        suffix = self.suffix
        self.resize(width, height)
        self.suffix = f"{suffix}-{width}x{height}"
        chapter(self)
        self.suffix = suffix
        self.resize(*DEFAULT_SIZE)

    def resize(self, width, height):
        """The window, so that its content has this size."""
        self.client.resize(width, height + self.menu_bar_height())

    def menu_bar_height(self):
        return next(self.screen.find_all("menu bar")).rect.height
