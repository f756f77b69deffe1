#include "shared/clsProgreso.h"

#include "shared/progreso.h"
#include "shared/qtexto.h"

clsProgreso::clsProgreso(QWidget *padre)
    : lblProgreso(new QLabel(padre)), barProgreso(new QProgressBar(padre))
{
    lblProgreso->setObjectName(QStringLiteral("lblProgreso"));
    barProgreso->setObjectName(QStringLiteral("barProgreso"));
    barProgreso->setAccessibleName(QStringLiteral("Progreso"));
    barProgreso->setTextVisible(false);
    barProgreso->setFixedWidth(padre->fontMetrics().averageCharWidth() * 20);
}

void clsProgreso::fMostrar(std::string_view strObra, int lngHechos, int lngTodos)
{
    if (m_strObra != strObra) {
        m_strObra = strObra;
        m_desde = Reloj::now();
    }
    barProgreso->setRange(0, lngTodos);
    barProgreso->setValue(lngHechos);
    barProgreso->show();
    lblProgreso->setText(fQ(fTextoProgreso(
        strObra, lngHechos, lngTodos,
        std::chrono::duration_cast<std::chrono::milliseconds>(Reloj::now() - m_desde))));
}

void clsProgreso::fQuitar()
{
    m_strObra.clear();
    barProgreso->hide();
    lblProgreso->clear();
}
