#include "dates/frmExif.h"

#include <QPlainTextEdit>
#include <QScreen>
#include <QVBoxLayout>

frmExif::frmExif(QWidget *padre) : QDialog(padre), m_txtExif(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("frmExif"));
    setWindowTitle(QStringLiteral("Información EXIF"));
    m_txtExif->setObjectName(QStringLiteral("txtExif"));
    m_txtExif->setAccessibleName(QStringLiteral("Datos EXIF"));
    m_txtExif->setReadOnly(true);
    m_txtExif->setTabChangesFocus(true);
    // The keyboard can move in it and select to copy.
    m_txtExif->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_txtExif->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto *const caja = new QVBoxLayout(this);
    caja->setContentsMargins(0, 0, 0, 0);
    caja->addWidget(m_txtExif);
    // No larger than the screen, whatever the letters' size.
    const QSize tam(fontMetrics().averageCharWidth() * 80, fontMetrics().lineSpacing() * 32);
    resize(tam.boundedTo(screen()->availableSize() * 0.9));
}

bool frmExif::fbolShow(const QString &strTexto)
{
    m_txtExif->setPlainText(strTexto);
    exec();
    return true;
}
