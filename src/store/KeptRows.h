#pragma once

#include <any>
#include <memory>
#include <string>
#include <utility>

#include "store/Connection.h"

namespace FX_Algen::store {

namespace detail {
/// What is kept under `source`, if nothing lasting changed since; else empty.
std::any Kept(Connection& connection, const std::string& source);
/// Notes the state of the lasting rows, from before they are read.
void BeginKeeping(Connection& connection, const std::string& source);
void Keep(Connection& connection, const std::string& source, std::any rows);
}  // namespace detail

/// What `read` makes of the rows of the statement `source`, kept between calls for as long as no row of a
/// table that is not scratch changed, by this connection or another one, nor such a table itself. A
/// connection keeps one entry, the last one. `source` must read lasting tables alone, and always give the
/// same for the same rows.
template <class Rows, class Read>
std::shared_ptr<const Rows> KeptRows(Connection& connection, const std::string& source, Read read) {
    const auto kept = detail::Kept(connection, source);
    if (const auto* rows = std::any_cast<std::shared_ptr<const Rows>>(&kept)) return *rows;
    detail::BeginKeeping(connection, source);
    std::shared_ptr<const Rows> rows = std::make_shared<const Rows>(read());
    detail::Keep(connection, source, rows);
    return rows;
}

}  // namespace FX_Algen::store
