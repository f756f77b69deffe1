// The least a viewer can be, as the reference of the others' start: a window of the screen's size
// that decodes one picture at the size it is shown in, and paints it. miravel_bench_ventana PICTURE

#include <QApplication>
#include <QImageReader>
#include <QLabel>
#include <QScreen>

int main(int intArgumentos, char **lstArgumentos)
{
    QApplication aplicacion(intArgumentos, lstArgumentos);
    if (intArgumentos < 2) {
        return 1;
    }
    QImageReader lector(QString::fromLocal8Bit(lstArgumentos[1]));
    const QSize pantalla = aplicacion.primaryScreen()->size();
    lector.setScaledSize(lector.size().scaled(pantalla, Qt::KeepAspectRatio));
    QLabel ventana;
    ventana.setAlignment(Qt::AlignCenter);
    ventana.setPixmap(QPixmap::fromImage(lector.read()));
    ventana.resize(pantalla);
    ventana.show();
    return aplicacion.exec();
}
