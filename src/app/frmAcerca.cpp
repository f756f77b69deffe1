#include "app/frmAcerca.h"

#include "shared/programa.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr int intLadoLogo = 96;

struct clsContacto {
    const char *strTexto;
    const char *strEnlace; ///< an address a browser or a mail program opens
};

/// Where the makers can be reached. They have named no place so far.
constexpr std::array<clsContacto, 0> lstContactos = {};

QLayout *fCrearTextos(QWidget *padre)
{
    auto *const textos = new QVBoxLayout;
    const auto fEtiqueta = [&](const QString &strNombre, const QString &strTexto) {
        auto *const etiqueta = new QLabel(strTexto, padre);
        etiqueta->setObjectName(strNombre);
        etiqueta->setTextFormat(Qt::PlainText);
        textos->addWidget(etiqueta);
        return etiqueta;
    };
    QLabel *const lblNombre =
        fEtiqueta(QStringLiteral("lblNombre"), QString::fromUtf8(strPrograma));
    QFont letra = lblNombre->font();
    letra.setBold(true);
    letra.setPointSizeF(letra.pointSizeF() * 1.8);
    lblNombre->setFont(letra);
    fEtiqueta(QStringLiteral("lblVersion"),
              QStringLiteral("Versión %1").arg(QString::fromUtf8(strVersion)));
    fEtiqueta(QStringLiteral("lblDescripcion"),
              QStringLiteral("Consulta y visualización de imágenes y vídeos."));
    fEtiqueta(
        QStringLiteral("lblLicencia"),
        QStringLiteral("Es software libre, sin ninguna garantía. Puedes usarlo, cambiarlo y\n"
                       "compartirlo según la GNU General Public License, versión 3 o posterior."));
    int intIndice = 0;
    for (const clsContacto &contacto : lstContactos) {
        QLabel *const enlace = fEtiqueta(
            QStringLiteral("lblContacto%1").arg(intIndice++),
            QStringLiteral("<a href=\"%1\">%2</a>")
                .arg(QString::fromUtf8(contacto.strEnlace), QString::fromUtf8(contacto.strTexto)));
        enlace->setTextFormat(Qt::RichText);
        enlace->setOpenExternalLinks(true);
    }
    textos->addStretch(1);
    return textos;
}

} // namespace

frmAcerca::frmAcerca(QWidget *padre) : QDialog(padre)
{
    setObjectName(QStringLiteral("frmAcerca"));
    setWindowTitle(QStringLiteral("Acerca de %1").arg(QString::fromUtf8(strPrograma)));
    auto *const imgLogo = new QLabel(this);
    imgLogo->setObjectName(QStringLiteral("imgLogo"));
    imgLogo->setAccessibleName(QStringLiteral("Logotipo"));
    imgLogo->setPixmap(QIcon(QStringLiteral(":/iconos/miravel.svg"))
                           .pixmap(QSize(intLadoLogo, intLadoLogo), devicePixelRatioF()));
    auto *const arriba = new QHBoxLayout;
    arriba->setSpacing(intLadoLogo / 4);
    arriba->addWidget(imgLogo, 0, Qt::AlignTop);
    arriba->addLayout(fCrearTextos(this), 1);
    auto *const cmdAyuda = new QPushButton(QStringLiteral("Ayuda"), this);
    cmdAyuda->setObjectName(QStringLiteral("cmdAyuda"));
    cmdAyuda->setAutoDefault(false);
    connect(cmdAyuda, &QPushButton::clicked, this, &frmAcerca::fAyudaPedida);
    auto *const cmdAceptar = new QPushButton(QStringLiteral("Aceptar"), this);
    cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
    cmdAceptar->setDefault(true);
    cmdAceptar->setFocus();
    connect(cmdAceptar, &QPushButton::clicked, this, &QDialog::accept);
    auto *const botones = new QHBoxLayout;
    botones->addWidget(cmdAyuda);
    botones->addStretch(1);
    botones->addWidget(cmdAceptar);
    auto *const caja = new QVBoxLayout(this);
    caja->setSizeConstraint(QLayout::SetFixedSize);
    caja->addLayout(arriba);
    caja->addSpacing(intLadoLogo / 8);
    caja->addLayout(botones);
}
