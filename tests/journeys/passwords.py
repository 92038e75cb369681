"""Everything that is typed as a password on the journey, none of which may be seen or kept anywhere."""

DEMO_PASSWORD = "quorvel-demo"
WRONG_PASSWORD = "not-the-password"
# With its blanks: whoever registers means them.
NEW_PASSWORD = " Pässword "
LATER_PASSWORD = "Ängelholm 2031 "
# Without the blanks that it is typed with: the office does not mean them.
OFFICE_PASSWORD = "From the öffice"
ALL_PASSWORDS = (DEMO_PASSWORD, WRONG_PASSWORD, NEW_PASSWORD.strip(), LATER_PASSWORD.strip(), OFFICE_PASSWORD)
