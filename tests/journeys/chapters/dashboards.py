"""What the dashboards of the roles have in common: tiles that count and short lists, all from the bridge's rows."""

from expectations import expect_equal
from waiting import wait_for

UPCOMING = {"scheduled", "confirmed", "rescheduled"}
PENDING = {"requested", "pending"}


def count(sessions, statuses):
    return sum(session["status"] in statuses for session in sessions)


def expect_tiles(stage, counts):
    """All of them are true at the same time, once the dashboard has loaded."""
    wait_for(lambda: _tiles(stage, counts) == {title: str(number) for title, number in counts.items()},
             f"the tiles {counts}")


def expect_rows(stage, title, names):
    wait_for(lambda: len(names_in(stage, title)) == len(names), f'{len(names)} rows under "{title}"')
    expect_equal(names_in(stage, title), names, f'the rows under "{title}"')


def names_in(stage, title):
    return [row.name for row in stage.rows(title)]


def _tiles(stage, titles):
    tiles = {title: stage.screen.find("panel", title) for title in titles}
    return {title: tile.description for title, tile in tiles.items() if tile}
