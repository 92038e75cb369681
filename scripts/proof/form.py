"""How much of everything a proof does."""

FULL_MINUTES = 180
# The thread sanitizer wants the client built once more, which a short form has no time for.
SHORT_MINUTES = 30


class Form:
    """The full form, or what `minutes` allow of it."""

    def __init__(self, minutes=None, json_suite=None):
        self.share = 1 if minutes is None else min(1, minutes / FULL_MINUTES)
        self.is_short = self.share < SHORT_MINUTES / FULL_MINUTES
        self.json_suite = json_suite

    def of(self, full, least):
        """So much of what the full form does `full` times."""
        return max(least, round(full * self.share))
