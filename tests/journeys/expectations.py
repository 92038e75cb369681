"""What must be stored and shown, worked out from what was typed and from the bridge's own rows."""

import json
from dataclasses import dataclass, field
from datetime import date, datetime
from zoneinfo import ZoneInfo

NEW_YORK = ZoneInfo("America/New_York")


@dataclass(frozen=True)
class Signer:
    name: str
    email: str
    phone: str
    id_type: str
    id_expiration: date


@dataclass(frozen=True)
class BookingForm:
    """What somebody enters into the booking form. `preferred` is an instant; without one it is as soon as
    possible. Without an `act_count` the number of signatures is unknown."""

    contact_name: str
    contact_email: str
    contact_phone: str
    retrieval_option: str
    preferred: datetime | None
    document_type: str
    act_count: int | None
    details: str
    witness_required: bool
    apostille_needed: bool
    notes: str
    signers: list[Signer] = field(default_factory=list)


def booking_request(form):
    """The request that the form must become: these keys and no others."""
    request = {
        "contact_name": form.contact_name.strip(),
        "contact_email": form.contact_email.strip(),
        "contact_phone": form.contact_phone.strip(),
        "appointment_asap": form.preferred is None,
        "document_retrieval_option": form.retrieval_option,
        "document_type": form.document_type,
        "notary_act_unknown": form.act_count is None,
        "remote_signing_details": form.details.strip(),
        "requires_witness": form.witness_required,
        "needs_apostille": form.apostille_needed,
        "notes": form.notes.strip(),
        "signer_count": len(form.signers),
        "timezone": "America/New_York",
        "booking_source": "macos_desktop",
    }
    if form.preferred is not None:
        there = form.preferred.astimezone(NEW_YORK)
        request["preferred_date"] = there.strftime("%Y-%m-%d")
        request["preferred_time"] = there.strftime("%-I:%M %p")
    if form.act_count is not None:
        request["notary_act_count"] = form.act_count
    return request | _signer_keys(form.signers)


def _signer_keys(signers):
    """Each signer's texts twice: under numbered keys and in lists."""
    texts = {
        "signer_name": [signer.name.strip() for signer in signers],
        "signer_email": [signer.email.strip() for signer in signers],
        "signer_phone": [signer.phone.strip() for signer in signers],
        "signer_id_type": [signer.id_type for signer in signers],
        "signer_id_expiration": [signer.id_expiration.isoformat() for signer in signers],
    }
    numbered = {f"{key}_{number}": text for key, column in texts.items()
                for number, text in enumerate(column, start=1)}
    return numbered | {f"{key}s": column for key, column in texts.items()}


def fee(form):
    count = form.act_count or 1
    return f"${25 + 8 * (count - 1):.2f}" if form.retrieval_option == "priority" else f"${15 * count:.2f}"


def signer_names(session):
    """Of the bridge's row, as the client joins them."""
    return ", ".join(signer[0] for signer in json.loads(session["signers"]))


def display_date_time(session):
    """When a session takes place, or else when it was booked, as the client words it for the bridge's row."""
    parts = [session["scheduled_date"] or session["preferred_date"],
             session["scheduled_time"] or session["preferred_time"]]
    return " ".join(part for part in parts if part) or new_york_time(session["created_at"])


def new_york_time(milliseconds):
    there = datetime.fromtimestamp(milliseconds / 1000, NEW_YORK)
    return there.strftime("%Y-%m-%d %-I:%M %p")


def session_row(session, document=True, status=True):
    """What a row of a list says to a screen reader."""
    parts = [signer_names(session), display_date_time(session)]
    parts += [session["document_type"]] if document else []
    parts += [session["status"]] if status else []
    return ", ".join(parts)


def latest_first(sessions):
    return sorted(sessions, key=display_date_time, reverse=True)


def expect_equal(actual, expected, what):
    """Fails with the difference only, since whole requests and lists are long."""
    if actual == expected:
        return
    if isinstance(actual, dict) and isinstance(expected, dict):
        keys = sorted(key for key in actual.keys() | expected.keys() if actual.get(key) != expected.get(key)
                      or (key in actual) != (key in expected))
        actual = {key: actual.get(key, "(absent)") for key in keys}
        expected = {key: expected.get(key, "(absent)") for key in keys}
    raise AssertionError(f"{what}:\n  expected {expected}\n  but was  {actual}")


def expect(condition, what):
    if not condition:
        raise AssertionError(what)
