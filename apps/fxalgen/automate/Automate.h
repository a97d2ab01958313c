#pragma once

#include <iosfwd>

namespace FX_Algen::cli {

/// Reads JSON-RPC 2.0 requests from `in`, one a line, and answers one a line on `out`, until `in` ends. The
/// methods and their parameters stand in `docs/hosts.md`. Boxes that operations show are recorded, not shown.
/// At the end the open forms are saved and closed.
///
/// The result is the exit code: 0 at the end of `in`, 1 where an answer could not be written, or where a form
/// could not save what was typed last, which `err` tells. Whatever the lines hold, each failure is an answer
/// and none ends the loop.
int Automate(std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace FX_Algen::cli
