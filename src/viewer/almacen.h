#pragma once

#include "shared/hilos.h"
#include "sistema/archivo.h"
#include "viewer/fuente.h"

#include <QObject>

#include <list>
#include <memory>
#include <vector>

/// Decodes pictures on worker threads and keeps the last ones, by path, content (time and size) and
/// decoded size. Belongs to the user-interface thread.
///
/// Memory: the kept pictures together take at most lngMaximoGuardado bytes, the one on screen and
/// the newest apart; a picture decoded ahead takes at most lngMaximoVecina.
class clsAlmacenFotos : public QObject {
    Q_OBJECT
public:
    explicit clsAlmacenFotos(QObject *padre = nullptr);
    ~clsAlmacenFotos() override;

    /// A picture that was decoded for this request; nullptr when there is none yet.
    [[nodiscard]] std::shared_ptr<const clsFuente> fTomar(const clsPedido &pedido,
                                                          const clsHuella &huella);
    /// Has a picture decoded unless it is kept or under way. fLlegada follows.
    void fPedir(const clsPedido &pedido, const clsHuella &huella);
    /// Gives up every request that is not one of these.
    void fAnularSalvo(const std::vector<clsPedido> &lstPedidos);

    static constexpr qint64 lngMaximoGuardado = qint64{256} << 20;
    static constexpr qint64 lngMaximoVecina = qint64{96} << 20;

signals:
    /// A requested picture was decoded (or could not be).
    void fLlegada();

private:
    struct clsTrabajo {
        clsPedido pedido;
        clsHuella huella;
        std::shared_ptr<std::atomic<bool>> bolAnulado;
    };
    struct clsGuardada {
        clsPedido pedido;
        clsHuella huella;
        std::shared_ptr<const clsFuente> fuente;
    };
    struct clsBuzon;
    void fRecibir(const clsTrabajo &trabajo, std::shared_ptr<const clsFuente> fuente);
    void fRecortar();

    clsHilos m_hilos{{.intHilos = 2}}; ///< the visible picture and one neighbour at a time
    std::shared_ptr<clsBuzon> m_buzon;
    std::list<clsTrabajo> m_lstTrabajos;
    std::list<clsGuardada> m_lstGuardadas; ///< last used first
};
