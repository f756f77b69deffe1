#pragma once

#include "shared/mensajes.h"

#include <QDir>
#include <QString>

/// Message boxes of the program, with Spanish buttons in every locale.
class clsMensajesQt : public clsMensajes {
public:
    void fAviso(Icono icono, const std::string &strTexto,
                const std::string &strTitulo = "Miravel") override;
    void fAvisoEnSerie(const std::string &strTexto) override;
    bool fSiNo(const std::string &strTexto) override;
    bool fAceptarCancelar(const std::string &strTexto) override;
    std::optional<std::string> fPedir(const std::string &strPregunta) override;
    std::string fElegirCarpeta(const std::string &strTitulo, const std::string &strAntes) override;

private:
    QString m_strCarpeta = QDir::homePath(); ///< the folder chosen last
};
