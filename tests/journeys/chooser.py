"""The file chooser of the desktop, as the client opens it."""

from waiting import wait_for


def choose_files(stage, title, confirm, files):
    """Presses the button with the chooser's title, picks files from the home folder, where the chooser begins, and
    takes them. A name with quotes cannot be typed there."""
    stage.person.press_button(title)
    chooser = stage.screen.wait("dialog", title)
    wait_for(lambda: _is_listed(stage, chooser, files[0].parent), "the chooser to list and sort the folder")
    for number, file in enumerate(files):
        row = stage.person.click("table cell", file.name, chooser, holding="ctrl" if number else None)
        wait_for(lambda: "selected" in row.states, f"{file.name} to be selected")  # noqa: B023
    stage.person.press_button(confirm, chooser)
    stage.screen.wait_gone("dialog", title)


def _is_listed(stage, chooser, folder):
    names = {file.name for file in folder.iterdir() if file.is_file()}
    cells = stage.screen.find_all("table cell", within=chooser)
    return [cell.name for cell in cells if cell.name in names] == sorted(names, key=str.casefold)
