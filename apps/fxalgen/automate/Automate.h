#pragma once

#include <iosfwd>

namespace FX_Algen::cli {

/// Reads JSON-RPC 2.0 requests from `in`, one a line, and answers one a line on `out`, until `in` ends. The
/// methods and their parameters stand in `docs/hosts.md`. Boxes that operations show are recorded, not shown.
///
/// The result is the exit code: 0 at the end of `in`, 1 where an answer could not be written. Whatever the
/// lines hold, each failure is an answer and none ends the loop.
int Automate(std::istream& in, std::ostream& out);

}  // namespace FX_Algen::cli
