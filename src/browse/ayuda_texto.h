#pragma once

#include <string_view>

/// The prose of the help page (HTML, UTF-8). Paragraphs are separated by an empty line; where a
/// line ends inside of one, a blank is meant. "# " begins a heading.
///
/// Deliberate: what is quoted from menus and boxes stands as it does there, also "Vacíar".
inline constexpr std::string_view strTextoAyuda = R"(
El Miravel es una aplicación de consulta y visualización de imágenes y vídeos. Te permite recorrer
una gran colección de fotos y vídeos, buscar en ella por fechas o por palabras, reunir copias de
los archivos que elijas y corregir las fechas que estén mal. Casi todo puede hacerse con el
teclado.

# Comenzando

Coloca el programa (Miravel.exe; en Linux, el archivo miravel) en la carpeta raíz de tus fotos y
vídeos, es decir, en la que contiene a todas las demás. El Miravel solo muestra lo que hay en esa
carpeta y en sus subcarpetas.

La primera vez que lo abras, recorrerá todas las carpetas y guardará en la raíz el fichero
'Miravel.dat', con la fecha y el tamaño de cada archivo. A partir de entonces leerá ese fichero en
lugar del disco y por eso se abrirá enseguida. Cuando añadas, borres o muevas archivos por tu
cuenta, elige 'Actualizar lista de archivos' en el menú 'Opciones' o pulsa 'F5'.

Para ocultar una carpeta con todo lo que contiene, haz que su nombre empiece por 'X_'. También
puedes ocultar así un solo archivo. Si cambias los nombres después de haber creado la lista,
actualízala.

Se reconocen las fotos con extensión JPG y los vídeos con extensión MPG, AVI, WMV, 3GP, FLV, MOV o
MP4. Los demás archivos no aparecen en la lista.

En la parte izquierda está la lista de archivos, con la fecha, el tamaño y la carpeta de cada uno.
Haz click en el título de una columna para ordenar la lista por ella, y otra vez para invertir el
orden. Con doble click sobre un archivo, o con la tecla Enter, lo abres con su programa
predeterminado.

En la parte derecha está el panel de visualización, que muestra el archivo actual o una página de
thumbnails (miniaturas). Encima verás qué posición ocupa el archivo en la lista, su ruta, su fecha
y su tamaño.

Para cambiar el ancho de las dos partes, arrastra con el ratón la línea que las separa.

# Desplazamiento

Para ir a un archivo, haz click sobre él en la lista o utiliza los botones de la cabecera. Los
rojos te llevan al primero y al último; los azules avanzan y retroceden de uno en uno o, si estás
viendo thumbnails, de página en página. Con el teclado, 'F11' retrocede y 'F12' avanza; si pulsas
además Shift, te llevan al primero y al último.

Con la tecla '&gt;' cambias el modo de avance: por carpeta, por día, por semana, por mes o por año.
El modo elegido aparece en la barra de menús, por ejemplo [Avance por SEMANA], y desde ese momento
los botones azules y las teclas 'F11' y 'F12' saltan de carpeta en carpeta, de día en día, etc.
Los saltos por fechas están pensados para la lista ordenada por fecha. Con la tecla 'Escape'
vuelves al modo normal.

Para ir a una fecha, pulsa la tecla 'D' y escríbela con ocho cifras y sin separadores (el 7 de
mayo de 2010 es 07052010). Se mostrará el primer archivo de ese día o, si no hay ninguno, el
primero posterior; si todos son anteriores, el último de la lista. Si la fecha no es válida, se te
volverá a preguntar.

# Trabajando con los archivos

Para trabajar con varios archivos a la vez, selecciónalos: marca su casilla en la lista, con el
ratón o con la barra espaciadora, o haz click sobre su thumbnail con la tecla Ctrl pulsada. Si no
hay ninguno seleccionado, se utiliza el archivo actual.

Si quieres seleccionar varios de golpe en la lista, clicka sobre el inicial, y con el Shift
pulsado, haz click sobre el final. El mismo sistema te servirá para los thumbnails. Los que ya
estaban seleccionados dejarán de estarlo.

En el menú 'Opciones' puedes seleccionar todos los archivos de la lista o solo los que se ven en
pantalla, deseleccionarlos todos o invertir la selección. Allí encontrarás también lo que puedes
hacer con ellos.

# Visualización

El botón 'ThumbNail' y la tecla 'M' cambian entre los thumbnails y la vista normal, que muestra
una sola imagen. En la vista normal, haz click con el botón derecho sobre la imagen para elegir el
zoom: 'Ajustar' (tecla 'J') la adapta al panel, y los porcentajes le dan un tamaño fijo. Si no
cabe en el panel, puedes moverla arrastrándola con el ratón. El tamaño de los thumbnails (pequeño,
medio o grande) se elige en el menú 'Opciones'; con el botón derecho sobre uno de ellos pasas a
verlo en la vista normal. Las teclas '+' y '-' del teclado numérico cambian el zoom o el tamaño de
los thumbnails. Los vídeos no se ven en la vista normal: ábrelos con Enter.

# Baúl

El Baúl es una carpeta temporal de intercambio a la que podrás enviar los archivos que quieras de
una forma rápida. Así puedes reunir en un solo sitio archivos de muchas carpetas, por ejemplo para
grabarlos o enviarlos. No la uses para guardar nada: su contenido puede desaparecer al apagar el
ordenador.

Para añadir archivos, selecciónalos y elige 'Añadir' en el menú del Baúl o pulsa la tecla 'A'. Los
archivos se copian; los originales se quedan donde están. El menú indica cuántos contiene: cuando
hay uno, se llama 'Baúl (1)'.

Delante del nombre de cada copia se pone su fecha, porque en carpetas distintas puede haber
archivos que se llamen igual: IMG_0001.JPG, del 7 de mayo de 2010, pasa a ser
2010.05.07.IMG_0001.JPG. Si dos archivos coinciden en la fecha y en el nombre, solo se conserva el
último que añadas.

Con 'Mostrar', o con la tecla 'B', se abre la carpeta del Baúl. Con 'Vacíar' se borran los
archivos que contiene, después de pedirte confirmación.

# Filtro

El filtro deja en la lista solo los archivos que buscas. Ábrelo con 'Filtrar', en el menú
'Opciones', o con la tecla 'F'; para volver a ver la lista completa, elige 'Quitar Filtro' o pulsa
Shift+'F'. Las fechas se escriben con seis cifras (DDMMYY); un día se incluye entero si como fecha
final pones el día siguiente. Las palabras se separan con comas, y con AND el nombre debe
contenerlas todas; con OR, al menos una, y con NOR, ninguna. Si indicas alguna fecha, el texto no
se tiene en cuenta.

- Fecha: Indica entre qué fechas quieres buscar.

- Texto: Indica el texto que quieres buscar, si quieres que busque también en los nombres de las
carpetas y el modo de buscar.

# Corregir fechas

La fecha de un archivo se considera incorrecta cuando no coincide ni con la que la cámara guardó
en la foto (se admite una hora de diferencia) ni con la que indique su nombre, como en
20100507_boda.jpg. También se considera incorrecta si no hay ninguna con la que compararla. En
esos casos se muestra el aviso 'Conflicto fechas'.

Con la tecla 'E' se busca una fecha incorrecta, desde el archivo actual hacia el principio de la
lista. Para revisar la lista entera, ve antes al último archivo. La búsqueda se interrumpe con
'Escape'.

Con la tecla 'W' corriges la fecha del archivo si es incorrecta; con Shift+'W', aunque no lo sea.
Elige una de las fechas que se te ofrecen o escribe otra, y pulsa 'Cambiar y quedarse', que sigue
mostrando el archivo corregido, o 'Cambiar y moverse', que continúa con el siguiente. El archivo
recibe la nueva fecha y cambia de nombre: la fecha se añade delante del que tenía. La lista se
actualiza, y en la carpeta raíz queda una copia del 'Miravel.dat' anterior.

Si has seleccionado varios archivos, todos reciben la misma fecha, y como esa fecha está desde
entonces en su nombre, la de todos ellos se considera correcta, aunque se hicieran en días
distintos. En ese caso, 'W' solo actúa si no es correcta la de ninguno de ellos; Shift+'W' actúa
siempre.

# Otras opciones

- Abrir carpeta contenedora: Abre la carpeta en la que se encuentra el archivo actual (tecla 'C').

- Copiar a: Copia los archivos seleccionados en la carpeta que indiques. Si en ella hay otros con
el mismo nombre, los reemplaza sin preguntar. La copia se interrumpe con 'Escape'.

- Mostrar Total: Indica cuántos archivos hay en la lista y cuánto ocupan.

- Fotos/Vídeos: Elige si la lista muestra solo las fotos, solo los vídeos o ambos.

- Información EXIF: Muestra los datos que la cámara guardó en la foto actual (tecla 'I').

# Teclas de acceso rápido

El botón 'Teclas' de la barra de herramientas despliega la lista de las teclas de acceso rápido.
)";
