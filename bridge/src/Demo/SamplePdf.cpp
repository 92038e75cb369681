#include "Demo/SamplePdf.h"

#include <array>
#include <cstdio>
#include <vector>

namespace bridge {

std::string samplePdf(const std::string& line)
{
    const std::string content = "BT /F1 18 Tf 72 700 Td (" + line + ") Tj ET";
    const std::string page = "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] /Contents 4 0 R"
                             " /Resources << /Font << /F1 5 0 R >> >> >>";
    const std::vector<std::string> objects{
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        page,
        "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "\nendstream",
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>",
    };
    std::string file = "%PDF-1.4\n";
    std::string offsets = "0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        std::array<char, 32> offset;
        std::snprintf(offset.data(), offset.size(), "%010zu 00000 n \n", file.size());
        offsets += offset.data();
        file += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::string start = std::to_string(file.size());
    const std::string size = std::to_string(objects.size() + 1);
    return file + "xref\n0 " + size + '\n' + offsets + "trailer\n<< /Size " + size
        + " /Root 1 0 R >>\nstartxref\n" + start + "\n%%EOF\n";
}

} // namespace bridge
