"""A business: its dashboard, its clients, and the two ways on from there."""

from chapters import dashboards
from chapters.dashboards import UPCOMING, count
from expectations import expect_equal, latest_first, session_row
from stage import DEMO_BUSINESS
from waiting import wait_for


def see_dashboard(stage):
    stage.open("Business")
    sessions = stage.bridge.business_sessions(DEMO_BUSINESS)
    clients = stage.bridge.business_clients(DEMO_BUSINESS)
    dashboards.expect_tiles(stage, {"Business Sessions": len(sessions), "Clients": len(clients),
                                    "Upcoming": count(sessions, UPCOMING)})
    dashboards.expect_rows(stage, "Recent Clients", [f"{client['name']}, {client['email']}" for client in clients])
    stage.picture("business-dashboard")


def go_on(stage):
    """To a booking for a client, and to the sessions of the business."""
    stage.person.press_button("Book for Client")
    stage.wait_for_section("Book Remote Notary")
    stage.open("Business")
    stage.person.press_button("View Sessions")
    stage.wait_for_section("Sessions")
    stage.screen.wait_reads("Business remote sessions.")
    sessions = latest_first(stage.bridge.business_sessions(DEMO_BUSINESS))
    wait_for(lambda: stage.rows("Sessions"), "the sessions of the business")
    expect_equal([row.name for row in stage.rows("Sessions")], [session_row(session) for session in sessions],
                 "the sessions of the business")
    stage.picture("sessions-business")


def look(stage):
    stage.open("Business")
    stage.picture("business-dashboard")
    stage.open("Sessions")
    stage.picture("sessions-business")
