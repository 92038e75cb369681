#include "Demo/Bookings.h"

namespace bridge {

const std::vector<DemoBooking>& demoBookings()
{
    constexpr Id priya = 1, helen = 2, samuel = 3, maya = 4, tomas = 5, grace = 6, marta = 7, oscar = 8,
                 daniel = 9;
    static const std::vector<DemoBooking> bookings{
        {priya, "", "completed", samuel, -41, -38, "10:30 AM", "Acknowledgment", "Priya Raman",
            "Acknowledgment of a bank signature card.", 1, "15.00", "Recording stored.",
            "Thank you, all went well.", "The notarized card is among the documents.", "signature card.pdf"},
        {helen, "Noor Haddad", "completed", samuel, -36, -33, "1:15 PM", "Real Estate Document",
            "Noor Haddad, Amir Haddad", "Deed and transfer forms for a family home.", 4, "49.00", "", "", "",
            "warranty_deed.pdf"},
        {tomas, "", "completed", marta, -33, -30, "9:00 AM", "Power of Attorney", "Tomas Alder",
            "Durable power of attorney for a parent.", 2, "30.00", "", "", "", ""},
        {priya, "", "cancelled", 0, -30, -27, "4:45 PM", "Translation Affidavit", "Priya Raman",
            "Affidavit for a translated birth certificate.", 1, "", "Cancelled by the client.", "", "", ""},
        {daniel, "Lucia Marin", "completed", maya, -28, -25, "11:00 AM", "Settlement / Litigation Document",
            "Lucia Marin", "Settlement agreement and release.", 3, "41.00", "", "", "",
            "settlement-release.pdf"},
        {grace, "", "cancelled", samuel, -25, -22, "3:30 PM", "Passport / Travel Consent",
            "Grace Obi, Ada Obi", "Consent for a minor to travel.", 1, "", "Trip was moved.", "", "", ""},
        {priya, "", "completed", marta, -22, -20, "2:05 PM", "Jurat / Affidavit", "Priya Raman, Arun Raman",
            "Affidavit of residence for two people.", 2, "30.00", "", "Both of us will be on the call.",
            "Please have your identification at hand.", "residence affidavit.pdf"},
        {helen, "Oscar Lindqvist", "completed", samuel, -20, -17, "12:30 PM", "Loan / Closing Document",
            "Oscar Lindqvist", "Closing package for a refinancing.", 9, "89.00", "", "", "",
            "closing_package.pdf"},
        {oscar, "", "completed", samuel, -18, -15, "5:00 PM", "Oath / Affirmation", "Oscar Lindqvist",
            "Oath for a professional licence.", 1, "15.00", "", "", "", ""},
        {priya, "", "rescheduled", samuel, -12, 3, "11:15 AM", "Power of Attorney", "Priya Raman",
            "Limited power of attorney for a car sale.", 1, "25.00", "Moved at the client's request.",
            "Could we meet on another day?", "Of course, I have moved it.", ""},
        {helen, "Noor Haddad", "rescheduled", samuel, -11, 4, "9:45 AM", "Real Estate Document",
            "Noor Haddad", "Corrected deed.", 1, "15.00", "", "", "", ""},
        {daniel, "Peter Novak", "cancelled", 0, -10, -6, "10:00 AM", "Other", "Peter Novak",
            "Statement for an insurer.", 1, "", "Settled without it.", "", "", ""},
        {priya, "", "completed", samuel, -9, -7, "8:30 AM", "Real Estate Document", "Priya Raman, Arun Raman",
            "Deed for the house on Elm Street.", 3, "45.00", "Recorded.", "", "", "elm-street-deed.pdf"},
        {tomas, "", "scheduled", marta, -8, 2, "3:00 PM", "Acknowledgment", "Tomas Alder",
            "Acknowledgment on a lease.", 1, "15.00", "", "", "", ""},
        {priya, "", "scheduled", samuel, -7, 1, "10:00 AM", "Loan / Closing Document", "Priya Raman",
            "Closing disclosure and note.", 6, "65.00", "", "Will the lender join?",
            "Yes, ten minutes later.", "closing disclosure.pdf"},
        {helen, "Tomas Alder", "scheduled", samuel, -6, 2, "1:00 PM", "Loan / Closing Document",
            "Tomas Alder, Eva Alder", "Home equity line.", 5, "57.00", "", "", "", ""},
        {helen, "Ines Duarte", "confirmed", marta, -5, 5, "2:30 PM", "Real Estate Document", "Ines Duarte",
            "Seller's closing documents.", 4, "49.00", "", "", "", ""},
        {priya, "", "confirmed", marta, -5, 6, "4:00 PM", "Passport / Travel Consent",
            "Priya Raman, Arun Raman", "Travel consent for a school trip.", 1, "15.00", "", "", "", ""},
        {grace, "", "scheduled", maya, -4, 3, "9:30 AM", "Jurat / Affidavit", "Grace Obi",
            "Affidavit of support.", 1, "25.00", "", "", "", "passport_scan.txt"},
        {daniel, "Lucia Marin", "confirmed", samuel, -4, 7, "11:45 AM", "Power of Attorney", "Lucia Marin",
            "Power of attorney for court.", 2, "33.00", "", "", "", ""},
        {helen, "Noor Haddad", "requested", marta, -3, 8, "10:15 AM", "Real Estate Document", "Noor Haddad",
            "Title affidavit.", 1, "", "", "", "", ""},
        {priya, "", "pending", samuel, -2, 9, "3:45 PM", "Other", "Priya Raman", "Certified copy statement.",
            1, "", "Waiting for the document.", "", "", ""},
        {tomas, "", "requested", 0, -2, 6, "1:30 PM", "Power of Attorney", "Tomas Alder",
            "Power of attorney for a bank.", 1, "", "", "", "", ""},
        {grace, "", "pending", 0, -1, 4, "5:15 PM", "Translation Affidavit", "Grace Obi",
            "Affidavit for a translated diploma.", 2, "", "", "", "", ""},
        {priya, "", "requested", 0, 0, 0, "", "Acknowledgment", "Priya Raman",
            "Acknowledgment needed as soon as possible.", 1, "", "", "I am available all day.", "", ""},
    };
    return bookings;
}

const std::vector<DemoWalkIn>& demoWalkIns()
{
    static const std::vector<DemoWalkIn> records{
        {"complete", "Rosa Jimenez", "rosa.jimenez@example.com", "(555) 010-0210", "Acknowledgment", -15,
            "10:20 AM", "Paid in cash.", "Rosa Jimenez", "walkin_records"},
        {"complete", "Victor Chen", "victor.chen@example.com", "", "Jurat / Affidavit", -12, "2:40 PM", "",
            "Victor Chen, Mei Chen", ""},
        {"complete", "Amara Diallo", "amara.diallo@example.com", "(555) 010-0221",
            "Passport / Travel Consent", -9, "11:05 AM", "Minor was present.", "Amara Diallo", "front_desk"},
        {"pending", "Leo Fischer", "leo.fischer@example.com", "(555) 010-0232", "Power of Attorney", -6,
            "4:10 PM", "Comes back with a second document.", "Leo Fischer", "walkin_records"},
        {"complete", "Hana Suzuki", "hana.suzuki@example.com", "", "Oath / Affirmation", -3, "9:15 AM", "",
            "Hana Suzuki", "walkin_records"},
        {"cancelled", "Ben Carter", "ben.carter@example.com", "(555) 010-0243", "Other", -1, "1:50 PM",
            "No identification.", "Ben Carter", "front_desk"},
    };
    return records;
}

} // namespace bridge
