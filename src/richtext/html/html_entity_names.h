#pragma once

namespace snipdeck {

/// The names that HTML has for characters, each with the numbers of its one or two characters in hexadecimal digits and a
/// blank behind it: "name=1f+2a ". The names with "!" in front need no semicolon. The list is that of the HTML standard.
extern const char kHtmlEntityNames[];

}  // namespace snipdeck
