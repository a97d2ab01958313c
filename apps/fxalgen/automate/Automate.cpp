#include "fxalgen/automate/Automate.h"

#include <istream>
#include <ostream>

#include "FX_Algen/Forms.h"
#include "fxalgen/automate/AutomateSession.h"

namespace FX_Algen::cli {

int Automate(std::istream& in, std::ostream& out, std::ostream& err) {
    rpc::Session session;
    bool answered = true;
    for (std::string line; answered && std::getline(in, line);) {
        if (const auto answer = session.Answer(line)) out << *answer << '\n' << std::flush;
        answered = static_cast<bool>(out);
    }
    const auto left = CloseForms();
    if (!left.empty()) err << "fxalgen automate: " << rpc::StaysOpen(left) << '\n';
    return answered && left.empty() ? 0 : 1;
}

}  // namespace FX_Algen::cli
