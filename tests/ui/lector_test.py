#!/usr/bin/env python3
"""The program as a screen reader sees it: every control with role, name and state, told over the
accessibility bus. Runs on an X server and a session bus of its own.
lector_test.py MIRAVEL MIRAVEL_DEMO"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

INT_ESPERA = 20  # seconds until a wait is given up


def f_aislar():
    """Starts this program again with a display, a bus and folders that nobody else uses."""
    carpeta = tempfile.mkdtemp()
    entorno = dict(os.environ, HOME=carpeta, XDG_RUNTIME_DIR=carpeta, TMPDIR=carpeta,
                   MIRAVEL_LECTOR=carpeta, QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8",
                   QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="1",
                   ASAN_OPTIONS="detect_leaks=0")
    for clave in ("XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "QT_QPA_PLATFORMTHEME", "QT_SCALE_FACTOR"):
        entorno.pop(clave, None)
    lee, escribe = os.pipe()
    xvfb = subprocess.Popen(["Xvfb", "-displayfd", str(escribe), "-screen", "0", "1280x900x24",
                             "-nolisten", "tcp", "-ac", "-noreset"], pass_fds=[escribe],
                            stderr=subprocess.DEVNULL)
    entorno["DISPLAY"] = ":" + os.read(lee, 16).decode().strip()
    try:
        return subprocess.call(["dbus-run-session", "--", sys.executable, *sys.argv], env=entorno)
    finally:
        xvfb.terminate()
        shutil.rmtree(carpeta, ignore_errors=True)


if "MIRAVEL_LECTOR" not in os.environ:
    sys.exit(f_aislar())

import gi  # noqa: E402

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# Roles of controls that tell or do something: without a name they say nothing.
ROLES = {"alert", "check box", "dialog", "frame", "image", "label", "menu item", "progress bar",
         "push button", "radio button", "table", "table cell", "table column header", "text",
         "tool bar"}
FOTOS = ["Globos 01.jpg", "Globos 02.jpg", "Globos 03.jpg", "Despegue.mov", "Globos 04.jpg",
         "Globos 05.jpg"]
PRINCIPAL = [
    ("frame", "Miravel 1.3"), ("table", "Lista de archivos"),
    *[("table column header", s) for s in ("Nombre", "Fecha", "Tamaño", "Carpeta")],
    *[("table cell", s) for s in FOTOS],
    ("tool bar", "Barra de herramientas"), ("check box", "ThumbNail"),
    *[("push button", s) for s in ("Primera", "Anterior", "Siguiente", "Ultima",
                                   "Información EXIF", "Teclas de acceso rápido.",
                                   "Separador entre la lista y el panel")],
    ("text", "Posición en la lista"), ("text", "Archivo actual"),
    ("label", "Panel de visualización"), ("frame|panel", "Marco de la fotografía"),
    ("image", "Fotografía: Globos 01.jpg (2019/06/08 07:45:12)"),
    *[("menu item", s) for s in ("Baúl (0)", "Opciones", "Más", "Ayuda")],
]
ENTRADAS = {"Baúl (0)": 3, "Opciones": 20, "Más": 14, "Ayuda": 2}  # separators count
DIALOGOS = {
    "f": ("Filtro (6 archivos)", [
        ("text", "Desde"), ("text", "Hasta  "), ("text", "Texto"), ("check box", "Incluir carpeta"),
        ("radio button", "AND"), ("radio button", "OR"), ("radio button", "NOR"),
        ("push button", "Aceptar"), ("push button", "Cancelar")]),
    "shift+w": ("Fechas", [
        ("text", "Fecha manual:"), ("label", "ACTUAL:"), ("push button", "Fecha EXIF: 08/06/2019 07:58:40"),
        ("push button", "Cambiar y moverse"), ("push button", "Cambiar y quedarse"),
        ("push button", "Cancelar")]),
    "i": ("Información EXIF", [("text", "Datos EXIF")]),
    "Acerca de ...": ("Acerca de Miravel", [
        ("label", "Miravel"), ("label", "Versión 1.3"), ("image", "Logotipo"),
        ("push button", "Ayuda"), ("push button", "Aceptar")]),
}
lst_fallos = []
lst_sucesos = []  # (kind, role, name, description) of what the program told


def f_exigir(bol_bien, str_frase):
    if not bol_bien:
        lst_fallos.append(str_frase)
        print("FAIL:", str_frase, file=sys.stderr)


def f_pausa(dbl_segundos=0.05):
    bucle = GLib.MainLoop()
    GLib.timeout_add(int(dbl_segundos * 1000), bucle.quit)
    bucle.run()


def f_esperar(f_hay, str_frase):
    """What f_hay gives as soon as it gives something."""
    dbl_fin = time.monotonic() + INT_ESPERA
    while time.monotonic() < dbl_fin:
        try:
            hay = f_hay()
        except GLib.Error:  # what was looked at has gone
            hay = None
        if hay:
            return hay
        f_pausa()
    f_exigir(False, "waited in vain: " + str_frase)
    sys.exit(1)


def f_tiene(nodo, estado):
    return nodo.get_state_set().contains(estado)


def f_nodos(nodo):
    if nodo is not None:
        yield nodo
        for int_hijo in range(nodo.get_child_count()):
            yield from f_nodos(nodo.get_child_at_index(int_hijo))


def f_rol(nodo):
    """The name of a control's role, as at-spi 2.46 and Qt 6.4 have it."""
    str_rol = nodo.get_role_name()
    return "push button" if str_rol in ("button", "push button menu") else str_rol


def f_buscar(raiz, str_rol, str_nombre):
    """The first control that shows, by its role and its name; "…" stands for any text, "|" for or
    between roles."""
    patron = re.escape(str_nombre).replace("…", ".*")
    return next((nodo for nodo in f_nodos(raiz)
                 if f_rol(nodo) in str_rol.split("|") and re.fullmatch(patron, nodo.get_name())
                 and f_tiene(nodo, Atspi.StateType.SHOWING)), None)


def f_hijos(nodo):
    return [nodo.get_child_at_index(i) for i in range(nodo.get_child_count())]


def f_comprobar(raiz, lst_esperados):
    for str_rol, str_nombre in lst_esperados:
        f_exigir(f_buscar(raiz, str_rol, str_nombre), f"no {str_rol} “{str_nombre}”")
    for nodo in f_nodos(raiz):
        if f_tiene(nodo, Atspi.StateType.SHOWING) and f_rol(nodo) in ROLES:
            f_exigir(nodo.get_name().strip(), f"a {f_rol(nodo)} without a name")


def f_pulsar(nodo):
    Atspi.Action.do_action(nodo, 0)


def f_tecla(str_ventana, str_tecla):
    str_id = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", str_ventana],
                            capture_output=True, text=True, check=True).stdout.split()[-1]
    subprocess.run(["xdotool", "windowfocus", str_id, "key", "--clearmodifiers", str_tecla],
                   check=False, stderr=subprocess.DEVNULL)


def f_suceso(suceso):
    try:
        lst_sucesos.append((suceso.type, f_rol(suceso.source), suceso.source.get_name(),
                            suceso.source.get_description()))
    except (AttributeError, GLib.Error):
        pass  # it has gone meanwhile


def f_anunciada(celda):
    """Whether a row of the list was told to have the focus since the last step."""
    return any(s[0] == "object:state-changed:focused" and s[1:3] == celda for s in lst_sucesos)


def f_aplicacion(int_proceso):
    lst = [a for a in f_hijos(Atspi.get_desktop(0)) if a and a.get_process_id() == int_proceso]
    return lst[0] if lst and lst[0].get_child_count() else None


def f_prueba_ventana(app):
    aviso = f_esperar(lambda: f_buscar(app, "push button", "Aceptar"), "the box of the first start")
    f_pulsar(aviso)
    f_esperar(lambda: f_buscar(app, *PRINCIPAL[-5]), "the picture")
    f_comprobar(app, PRINCIPAL)
    for str_menu, int_entradas in ENTRADAS.items():
        lst_entradas = f_hijos(f_hijos(f_buscar(app, "menu item", str_menu))[0])
        f_exigir(len(lst_entradas) == int_entradas, f"{str_menu}: {len(lst_entradas)} entries")
        f_exigir(all(e.get_name() or f_rol(e) == "separator" for e in lst_entradas),
                 f"{str_menu}: an entry without a name")
        f_exigir(str_menu != "Opciones" or
                 [e.get_name() for e in lst_entradas if f_tiene(e, Atspi.StateType.CHECKED)] ==
                 ["Mostrar Fotos y Vídeos", "Thumbnail Grande"], "the entries with a tick")


def f_prueba_lista(app):
    """The steps are told by the list's focus, the ticks by the description of the row."""
    celda = ("table cell", FOTOS[1])
    f_tecla("^Miravel 1", "F12")
    f_esperar(lambda: f_anunciada(celda), "the next row is announced")
    f_esperar(lambda: f_buscar(app, "image", "Fotografía: Globos 02.jpg (2019/06/08 07:58:40)"),
              "the picture's new name")
    f_exigir(f_buscar(app, *celda).get_description() == "sin seleccionar", "a row without a tick")
    f_tecla("^Miravel 1", "space")
    f_esperar(lambda: ("object:property-change:accessible-description", *celda, "seleccionado")
              in lst_sucesos, "the tick is announced")


def f_prueba_miniaturas(app):
    f_tecla("^Miravel 1", "m")
    lst_celdas = [  # name, description
        ("Globos 01.jpg (2019/06/08 07:45:12) - … KB", "Globos 01.jpg ("),
        ("Globos 02.jpg (2019/06/08 07:58:40) - … KB, seleccionado", "KB, seleccionado"),
        ("Despegue.mov (2019/06/08 … KB, video", "Despegue.mov (2019/06/08 "),
    ]
    for str_nombre, str_aparte in lst_celdas:
        celda = f_esperar(lambda: f_buscar(app, "push button", str_nombre), str_nombre)
        f_exigir(str_aparte in celda.get_description(), f"{str_nombre}: {celda.get_description()}")
    f_comprobar(app, [])
    f_exigir(f_tiene(f_buscar(app, "check box", "ThumbNail"), Atspi.StateType.CHECKED), "the mode")
    lst_sucesos.clear()
    f_pulsar(f_buscar(app, "push button", lst_celdas[0][0]))
    f_esperar(lambda: f_anunciada(("table cell", FOTOS[0])), "the cell that is pressed is current")


def f_prueba_dialogos(app):
    for str_tecla, (str_titulo, lst_esperados) in DIALOGOS.items():
        if " " in str_tecla:
            f_pulsar(next(n for n in f_nodos(app) if n.get_name() == str_tecla))
        else:
            f_tecla("^Miravel 1", str_tecla)
        dialogo = f_esperar(lambda: f_buscar(app, "dialog", str_titulo), str_titulo)
        f_comprobar(dialogo, lst_esperados)
        f_exigir(any(f_tiene(n, Atspi.StateType.FOCUSED) for n in f_nodos(dialogo)),
                 f"{str_titulo}: nothing has the focus")
        f_tecla("^" + str_titulo.split(" (")[0], "Escape")
        f_esperar(lambda: not f_buscar(app, "dialog", str_titulo), f"the end of “{str_titulo}”")


def f_principal():
    str_miravel, str_demo = sys.argv[1:3]
    str_archivo = os.environ["MIRAVEL_LECTOR"] + "/archivo"
    subprocess.run([str_demo, str_archivo], check=True, stdout=subprocess.DEVNULL)
    oyente = Atspi.EventListener.new(f_suceso)
    for str_suceso in ("object:state-changed:focused", "object:property-change"):
        oyente.register(str_suceso)
    with subprocess.Popen([str_miravel, "___" + str_archivo + "/2019/Globos en Segovia"]) as miravel:
        try:
            app = f_esperar(lambda: f_aplicacion(miravel.pid), "the program on the bus")
            for f_prueba in (f_prueba_ventana, f_prueba_lista, f_prueba_miniaturas,
                             f_prueba_dialogos):
                f_prueba(app)
        finally:
            miravel.kill()
    return 1 if lst_fallos else 0


sys.exit(f_principal())
