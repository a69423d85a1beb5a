// The text that a formula was formed from, and its words, inside its picture.
//
// The source is written as UTF-8 in which control characters and the backslash are \xNN: one line
// that formats and programs between leave alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

std::string EscapeCarried(std::string_view utf8);
// The opposite; what is no escape stays.
std::string UnescapeCarried(std::string_view text);

// How a source is known in each format.
inline constexpr char CARRIED_NAME[] = "mivora";  // keyword of PNG, creator of PDF, urn of SVG
inline constexpr char DESCRIPTION_NAME[] = "Description";

// The elements of an SVG that hold a source and a title, as far as they are not empty.
std::string SvgCarriedText(const std::string& strSource, const std::string& strTitle);

enum ECarrier
{
    CARRIER_UNKNOWN,  // no picture that could hold a source
    CARRIER_METAFILE,
    CARRIER_BMP,  // has no place for one
    CARRIER_PNG,
    CARRIER_SVG,
    CARRIER_PDF
};

// What some bytes are, by how they begin.
ECarrier CarrierOf(std::string_view bytes);

// The source in a PNG, SVG or PDF, as UTF-8; none where there is none, whatever the bytes are.
std::optional<std::string> FindCarriedSource(std::string_view bytes);
