#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"Concluído"},
    {u"brand.slogan", u"A sua multimédia. O seu arquivo."},
    {u"header.appearance.system", u"Sistema"},
    {u"header.appearance.light", u"Claro"},
    {u"header.appearance.dark", u"Escuro"},

    {u"performance.title", u"Aviso de desempenho"},
    {u"performance.message", u"O LUMEO. pode utilizar intensivamente o armazenamento ao analisar, copiar, "
                             u"mover, calcular hashes e verificar.\n\n"
                             u"• As unidades externas podem permanecer ocupadas\n"
                             u"• O Finder e o Mac podem parecer mais lentos\n"
                             u"• Os discos mecânicos podem fazer mais ruído\n"
                             u"• Outras aplicações com uso intensivo do disco podem ficar mais lentas\n"
                             u"• A utilização da memória e da cache de disco pode aumentar temporariamente"},
    {u"performance.expected",
     u"É normal durante o processamento intensivo de multimédia e não indica qualquer problema."},
    {u"performance.inline",
     u"O LUMEO. irá utilizar ativamente a largura de banda do armazenamento e a memória/cache do sistema "
     u"durante esta operação. O Mac ou a unidade externa podem parecer temporariamente mais lentos."},

    {u"last.title", u"Última operação concluída"},
    {u"last.filesProcessed", u"Ficheiros"},
    {u"last.dataTransferred", u"Transferido"},
    {u"last.verified", u"Verificados"},
    {u"last.skipped", u"Ignorados"},
    {u"last.errors", u"Erros"},
    {u"last.duration", u"Duração"},
    {u"last.operationType", u"Operação"},
    {u"last.destination", u"Destino"},
    {u"last.completedAt", u"Concluída"},

    {u"operation.copy", u"Copiar"},
    {u"operation.move", u"Mover"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"Origens"},
    {u"step.scanResults", u"Resultados da análise"},
    {u"step.organization", u"Organização"},
    {u"step.preview", u"Pré-visualização"},
    {u"step.processing", u"Processamento"},
    {u"step.report", u"Relatório"},

    {u"sources.heroTitle", u"Organize a sua multimédia"},
    {u"sources.heroSubtitle",
     u"Transforme anos de fotografias e vídeos dispersos num arquivo limpo e estruturado."},
    {u"sources.dropZoneTitle", u"Largue aqui pastas ou unidades"},
    {u"sources.chooseFolder", u"Escolher pasta…"},
    {u"sources.scanMedia", u"Analisar multimédia"},
    {u"sources.safetyReassurance", u"Nada será alterado durante a análise."},
    {u"sources.privacyReassurance", u"A sua multimédia permanece neste Mac."},

    {u"org.copyTitle", u"Copiar (recomendado)"},
    {u"org.moveTitle", u"Mover"},

    {u"report.title", u"Organização concluída"},
    {u"report.openInFinder", u"Abrir no Finder"},

    {u"brand.slogan", u"A sua multimédia. O seu arquivo."},
};

} // namespace

constinit const LanguageTables portuguese{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
