#pragma once

#include "dates/exif_fecha.h"

#include <string>
#include <string_view>
#include <utility>

/// The dates that a file's name may mean, at midnight; zero where it means none.
struct clsFechasNombre {
    clsFecha datAnoPrimero; ///< the digits as year, month, day
    clsFecha datDiaPrimero; ///< the same digits as day, month, year
};

/// Reads the first eight digits of a name. They need not be adjacent, and those of the extension
/// count too. Only 0 to 9 are digits.
[[nodiscard]] clsFechasNombre fFechasDeNombre(std::string_view strNombre);

/// Whether a file's date agrees with another one, if that is there: both cut to the minute, at most
/// an hour apart. Deliberate: exactly one hour apart still agrees.
[[nodiscard]] bool fMismaHora(clsFecha datFile, clsFecha datOtra);

/// Whether a file's date is of the day of another one, if that is there.
[[nodiscard]] bool fMismoDia(clsFecha datFile, clsFecha datOtra);

/// The verdict: whether a file's date agrees with the EXIF date (to one hour) or with a date of its
/// name (to the day). False when there is no such date.
[[nodiscard]] bool fCorrecta(clsFecha datFile, const clsFechasExif &exif,
                             const clsFechasNombre &nombre);

/// One media file and all its dates: that of the file, those in the photo, those in the name; and
/// whether the file's own date agrees with one of the others. Loading has no state outside the
/// record, so worker threads may load records of their own.
class clsFile {
public:
    void fReset();

    /// Gathers the dates of the file at that path and judges. bolDatos tells whether it exists.
    void fCargar(const std::string &strRuta);

    [[nodiscard]] bool bolDatos() const { return m_bolDatos; }
    /// The verdict, see fCorrecta.
    [[nodiscard]] bool bolFechaCorrecta() const { return m_bolFechaCorrecta; }

    [[nodiscard]] const std::string &strFilePath() const { return m_strFilePath; }
    /// The path after a correction; empty until it is set.
    [[nodiscard]] const std::string &strFilePathNew() const { return m_strFilePathNew; }
    void strFilePathNew(std::string strRuta) { m_strFilePathNew = std::move(strRuta); }
    [[nodiscard]] std::string strFileName() const;

    // Zero dates mean that there is none.
    /// Last modification in local time.
    [[nodiscard]] clsFecha datFile() const { return m_datFile; }
    /// When the photo was taken, else the date of its image data.
    [[nodiscard]] clsFecha datExif() const { return m_exif.fMejor(); }
    /// The first eight digits of the name as year, month, day.
    [[nodiscard]] clsFecha datNombre1() const { return m_datNombre1; }
    /// The same digits as day, month, year.
    [[nodiscard]] clsFecha datNombre2() const { return m_datNombre2; }

private:
    bool m_bolDatos = false;
    bool m_bolFechaCorrecta = false;
    clsFecha m_datFile;
    clsFechasExif m_exif;
    clsFecha m_datNombre1;
    clsFecha m_datNombre2;
    std::string m_strFilePath;
    std::string m_strFilePathNew;
};

/// Whether the date of the file at that path is right.
[[nodiscard]] bool fFechaCorrecta(const std::string &strRuta);
