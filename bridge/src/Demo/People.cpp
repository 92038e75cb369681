#include "Demo/People.h"

namespace bridge {

const std::vector<DemoPerson>& demoPeople()
{
    static const std::vector<DemoPerson> people{
        {"priya.raman@example.com", "Priya Raman", "(555) 010-0142", "Albany", "NY", "client", "", "", ""},
        {"helen.brandt@example.com", "Helen Brandt", "(555) 010-0117", "Buffalo", "NY", "title_agency",
            "Brandt Title Agency", "", ""},
        {"samuel.adeyemi@example.com", "Samuel Adeyemi", "(555) 010-0163", "Rochester", "NY", "notary", "",
            "Monroe", "01AD6402213"},
        {"maya.whitfield@example.com", "Maya Whitfield", "(555) 010-0101", "New York", "NY", "admin", "",
            "Kings", "01WH6318870"},
        {"tomas.alder@example.com", "Tomas Alder", "(555) 010-0128", "Syracuse", "NY", "client", "", "", ""},
        {"grace.obi@example.com", "Grace Obi", "(555) 010-0135", "Yonkers", "NY", "client", "", "", ""},
        {"marta.kowal@example.com", "Marta Kowal", "(555) 010-0174", "Ithaca", "NY", "signing_agent", "",
            "Tompkins", "01KO6275541"},
        {"oscar.lindqvist@example.com", "Oscar Lindqvist", "", "Utica", "NY", "client", "", "", ""},
        {"daniel.reyes@example.com", "Daniel Reyes", "(555) 010-0189", "White Plains", "NY", "law_firm",
            "Reyes & Partners LLP", "", ""},
    };
    return people;
}

} // namespace bridge
