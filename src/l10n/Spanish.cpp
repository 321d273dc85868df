#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"Listo"},
    {u"brand.slogan", u"Sus fotos y vídeos. Su archivo."},
    {u"header.appearance.system", u"Sistema"},
    {u"header.appearance.light", u"Claro"},
    {u"header.appearance.dark", u"Oscuro"},

    {u"performance.title", u"Aviso de rendimiento"},
    {u"performance.message", u"LUMEO. puede hacer un uso intensivo del almacenamiento al escanear, copiar, "
                             u"mover, calcular hashes y verificar.\n\n"
                             u"• Las unidades externas pueden permanecer ocupadas\n"
                             u"• El Finder y el Mac pueden parecer más lentos\n"
                             u"• Los discos mecánicos pueden hacer más ruido\n"
                             u"• Otras aplicaciones que usan mucho el disco pueden ralentizarse\n"
                             u"• El uso de memoria y de caché de disco puede aumentar temporalmente"},
    {u"performance.expected",
     u"Es normal durante el procesamiento intensivo de archivos multimedia y no indica ningún problema."},
    {u"performance.inline",
     u"LUMEO. usará activamente el ancho de banda de almacenamiento y la memoria/caché del sistema durante "
     u"esta operación. El Mac o la unidad externa pueden parecer más lentos temporalmente."},

    {u"last.title", u"Última operación completada"},
    {u"last.filesProcessed", u"Archivos"},
    {u"last.dataTransferred", u"Transferido"},
    {u"last.verified", u"Verificados"},
    {u"last.skipped", u"Omitidos"},
    {u"last.errors", u"Errores"},
    {u"last.duration", u"Duración"},
    {u"last.operationType", u"Operación"},
    {u"last.destination", u"Destino"},
    {u"last.completedAt", u"Finalizada"},

    {u"operation.copy", u"Copiar"},
    {u"operation.move", u"Mover"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"Orígenes"},
    {u"step.scanResults", u"Resultados del escaneo"},
    {u"step.organization", u"Organización"},
    {u"step.preview", u"Vista previa"},
    {u"step.processing", u"Procesamiento"},
    {u"step.report", u"Informe"},

    {u"sources.heroTitle", u"Organice sus fotos y vídeos"},
    {u"sources.heroSubtitle",
     u"Convierta años de fotos y vídeos dispersos en un archivo limpio y estructurado."},
    {u"sources.dropZoneTitle", u"Suelte aquí carpetas o unidades"},
    {u"sources.chooseFolder", u"Elegir carpeta…"},
    {u"sources.scanMedia", u"Iniciar escaneo"},
    {u"sources.safetyReassurance", u"No se modificará nada durante el escaneo."},
    {u"sources.privacyReassurance", u"Sus fotos y vídeos permanecen en este Mac."},

    {u"org.copyTitle", u"Copiar (recomendado)"},
    {u"org.moveTitle", u"Mover"},

    {u"report.title", u"Organización completada"},
    {u"report.openInFinder", u"Abrir en el Finder"},
};

} // namespace

constinit const LanguageTables spanish{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
