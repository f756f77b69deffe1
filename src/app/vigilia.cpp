#include "app/vigilia.h"

#include "shared/programa.h"
#include "shared/qtexto.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace {

constexpr int intEsperaBus = 5000; // milliseconds

QString fNombreConexion() { return QStringLiteral("miravel-vigilia"); }

QDBusMessage fLlamada(const char *strCual)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                          QStringLiteral("/org/freedesktop/ScreenSaver"),
                                          QStringLiteral("org.freedesktop.ScreenSaver"),
                                          QString::fromLatin1(strCual));
}

/// What the desktop gives for it, to give it back; 0: nothing.
std::uint32_t fInhibir()
{
    QDBusMessage pregunta = fLlamada("Inhibit");
    pregunta << QString::fromLatin1(strPrograma) << QStringLiteral("Presentación");
    const QDBusMessage respuesta =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, fNombreConexion())
            .call(pregunta, QDBus::Block, intEsperaBus);
    return respuesta.type() == QDBusMessage::ReplyMessage && !respuesta.arguments().isEmpty()
               ? respuesta.arguments().constFirst().toUInt()
               : 0;
}

void fDevolver(std::uint32_t lngPrenda)
{
    if (lngPrenda != 0) {
        QDBusMessage aviso = fLlamada("UnInhibit");
        aviso << lngPrenda;
        QDBusConnection(fNombreConexion()).call(aviso, QDBus::Block, intEsperaBus);
    }
    QDBusConnection::disconnectFromBus(fNombreConexion());
}

} // namespace

void clsVigilia::fVelar(bool bolVelar)
{
    while (m_hilos.fAtender()) { // what was answered meanwhile
    }
    // Where no bus is named, looking for one would start it.
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) {
        return;
    }
    m_hilos.fPedir(
        [prenda = m_prenda, bolVelar] {
            fDevolver(std::exchange(*prenda, 0));
            if (bolVelar) {
                *prenda = fInhibir();
            }
            return true;
        },
        [](bool) {});
}
