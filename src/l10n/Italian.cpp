#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"Fine"},
    {u"brand.slogan", u"I tuoi media. Il tuo archivio."},
    {u"header.appearance.system", u"Sistema"},
    {u"header.appearance.light", u"Chiaro"},
    {u"header.appearance.dark", u"Scuro"},

    {u"performance.title", u"Avviso sulle prestazioni"},
    {u"performance.message", u"LUMEO. può usare intensamente i dispositivi di archiviazione durante "
                             u"scansione, copia, spostamento, calcolo degli hash e verifica.\n\n"
                             u"• Le unità esterne possono restare occupate\n"
                             u"• Il Finder e il Mac possono sembrare più lenti\n"
                             u"• I dischi meccanici possono fare più rumore\n"
                             u"• Altre app che usano molto il disco possono rallentare\n"
                             u"• L’uso della memoria e della cache del disco può aumentare temporaneamente"},
    {u"performance.expected",
     u"È normale durante l’elaborazione intensiva di file multimediali e non indica un problema."},
    {u"performance.inline",
     u"Durante questa operazione LUMEO. userà attivamente la banda dei dispositivi di archiviazione e la "
     u"memoria/cache di sistema. Il Mac o l’unità esterna potrebbero sembrare temporaneamente più lenti."},

    {u"last.title", u"Ultima operazione completata"},
    {u"last.filesProcessed", u"File"},
    {u"last.dataTransferred", u"Trasferiti"},
    {u"last.verified", u"Verificati"},
    {u"last.skipped", u"Ignorati"},
    {u"last.errors", u"Errori"},
    {u"last.duration", u"Durata"},
    {u"last.operationType", u"Operazione"},
    {u"last.destination", u"Destinazione"},
    {u"last.completedAt", u"Completata"},

    {u"operation.copy", u"Copia"},
    {u"operation.move", u"Spostamento"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"Sorgenti"},
    {u"step.scanResults", u"Risultati scansione"},
    {u"step.organization", u"Organizzazione"},
    {u"step.preview", u"Anteprima"},
    {u"step.processing", u"Elaborazione"},
    {u"step.report", u"Resoconto"},

    {u"sources.heroTitle", u"Organizza i tuoi media"},
    {u"sources.heroSubtitle",
     u"Trasforma anni di foto e video sparsi in un archivio ordinato e strutturato."},
    {u"sources.dropZoneTitle", u"Trascina qui cartelle o unità"},
    {u"sources.chooseFolder", u"Scegli cartella…"},
    {u"sources.scanMedia", u"Scansiona media"},
    {u"sources.safetyReassurance", u"Nulla verrà modificato durante la scansione."},
    {u"sources.privacyReassurance", u"I tuoi media restano su questo Mac."},

    {u"org.copyTitle", u"Copia (consigliato)"},
    {u"org.moveTitle", u"Sposta"},

    {u"report.title", u"Organizzazione completata"},
    {u"report.openInFinder", u"Apri nel Finder"},
};

} // namespace

constinit const LanguageTables italian{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
