"""The chapters of the journey, each a part of somebody's day with the client."""
