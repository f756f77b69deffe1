#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

/// A folder tree below a temporary root. It goes away with everything in it, however deep it is and
/// whatever its permissions are. What cannot be made throws std::system_error: the test fails.
class clsArbol {
public:
    static constexpr std::time_t lngMomento = 1247587402; ///< 2009/07/14 16:03:22 universal time

    /// @param strDonde folder for the root; empty: the system's temporary folder.
    explicit clsArbol(const std::string &strDonde = {});
    ~clsArbol();
    clsArbol(const clsArbol &) = delete;
    clsArbol &operator=(const clsArbol &) = delete;

    /// The root with a trailing "/".
    [[nodiscard]] const std::string &fRaiz() const { return m_strRaiz; }
    /// Full path of something below the root.
    [[nodiscard]] std::string fRuta(std::string_view strRelativa) const;

    // Each makes the folders above it, too. Paths may be longer than the system takes at once.
    void fCarpeta(std::string_view strRelativa) const;
    void fCrear(std::string_view strRelativa, std::string_view strBytes = "x",
                std::time_t lngFecha = lngMomento) const;
    void fEnlace(std::string_view strRelativa, const std::string &strDestino) const;
    void fTuberia(std::string_view strRelativa) const;

    /// The bytes of a file.
    [[nodiscard]] std::string fLeer(std::string_view strRelativa) const;
    /// Sorted names of what lies directly in a folder.
    [[nodiscard]] std::vector<std::string> fNombres(std::string_view strRelativa = {}) const;

private:
    std::string m_strRaiz;
};

/// The time zone of the program while it lives.
class clsZona {
public:
    explicit clsZona(const char *strZona);
    ~clsZona();
    clsZona(const clsZona &) = delete;
    clsZona &operator=(const clsZona &) = delete;
};
