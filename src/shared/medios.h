#pragma once

#include <string_view>

/// Which files the list shows; the numbers are those of setting "FOTOVIDEO".
enum class Medios { Fotos = 0, Videos = 1, Todos = 2 };

/// Extensions of a media kind, in capitals and each between "/"; empty for any other number.
/// @param bolFormatos the other formats (HEIC, PNG, raw photos, MKV...) besides the usual ones.
[[nodiscard]] std::string_view fExtensionesVisibles(Medios medios, bool bolFormatos = false);

/// Whether the path's extension, in either case, is one of the list. No extension never is.
[[nodiscard]] bool fExtensionEn(std::string_view strRuta, std::string_view strExtensiones);

// By the path's extension, whether other formats are shown or not:

/// Whether it is a video.
[[nodiscard]] bool fEsVideo(std::string_view strRuta);
/// Whether it is a raw photo of a camera, of which only the embedded preview is shown.
[[nodiscard]] bool fEsCruda(std::string_view strRuta);
/// Whether it is a photo or video, but of none of the usual formats.
[[nodiscard]] bool fEsOtroFormato(std::string_view strRuta);
