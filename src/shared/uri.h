#pragma once

#include <string>
#include <string_view>

/// The URI of a file (RFC 8089) from the bytes of its absolute path: "file://" and the path, with
/// every byte percent-encoded but A-Z a-z 0-9 and - _ . ! ~ * ' ( ) / & = + $ , : @. These are the
/// ones that GLib's g_filename_to_uri leaves, so that file managers get the same text.
[[nodiscard]] std::string fUriDeRuta(std::string_view strRuta);
