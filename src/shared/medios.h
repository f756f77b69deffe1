#pragma once

#include <string_view>

/// Which files the list shows; the numbers are those of setting "FOTOVIDEO".
enum class Medios { Fotos = 0, Videos = 1, Todos = 2 };

/// Extensions of a media kind, in capitals and each between "/"; empty for any other number.
[[nodiscard]] std::string_view fExtensionesVisibles(Medios medios);

/// Whether the path's extension, in either case, is one of the list. No extension never is.
[[nodiscard]] bool fExtensionEn(std::string_view strRuta, std::string_view strExtensiones);

/// Whether the path's extension is that of a video.
[[nodiscard]] bool fEsVideo(std::string_view strRuta);
