#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"Fertig"},
    {u"brand.slogan", u"Ihre Medien. Ihr Archiv."},
    {u"header.appearance.system", u"System"},
    {u"header.appearance.light", u"Hell"},
    {u"header.appearance.dark", u"Dunkel"},

    {u"performance.title", u"Leistungshinweis"},
    {u"performance.message",
     u"LUMEO. kann beim Scannen, Kopieren, Verschieben, Berechnen von Prüfsummen und Überprüfen die "
     u"Laufwerke stark beanspruchen.\n\n"
     u"• Externe Laufwerke können ausgelastet bleiben\n"
     u"• Finder und Mac können langsamer wirken\n"
     u"• Mechanische Laufwerke können lauter werden\n"
     u"• Andere laufwerksintensive Programme können langsamer werden\n"
     u"• Die Nutzung von Arbeitsspeicher und Festplattencache kann vorübergehend steigen"},
    {u"performance.expected",
     u"Das ist bei umfangreicher Medienverarbeitung normal und deutet nicht auf ein Problem hin."},
    {u"performance.inline",
     u"LUMEO. nutzt während dieses Vorgangs die Laufwerksbandbreite sowie Arbeitsspeicher und Cache "
     u"intensiv. Ihr Mac oder das externe Laufwerk kann vorübergehend langsamer wirken."},

    {u"last.title", u"Letzter abgeschlossener Vorgang"},
    {u"last.filesProcessed", u"Dateien"},
    {u"last.dataTransferred", u"Übertragen"},
    {u"last.verified", u"Überprüft"},
    {u"last.skipped", u"Übersprungen"},
    {u"last.errors", u"Fehler"},
    {u"last.duration", u"Dauer"},
    {u"last.operationType", u"Vorgang"},
    {u"last.destination", u"Ziel"},
    {u"last.completedAt", u"Abgeschlossen"},

    {u"operation.copy", u"Kopieren"},
    {u"operation.move", u"Verschieben"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"Quellen"},
    {u"step.scanResults", u"Scanergebnisse"},
    {u"step.organization", u"Organisation"},
    {u"step.preview", u"Vorschau"},
    {u"step.processing", u"Verarbeitung"},
    {u"step.report", u"Bericht"},

    {u"sources.heroTitle", u"Medien organisieren"},
    {u"sources.heroSubtitle",
     u"Verwandeln Sie über Jahre verstreute Fotos und Videos in ein übersichtliches, strukturiertes Archiv."},
    {u"sources.dropZoneTitle", u"Ordner oder Laufwerke hier ablegen"},
    {u"sources.chooseFolder", u"Ordner auswählen …"},
    {u"sources.scanMedia", u"Medien scannen"},
    {u"sources.safetyReassurance", u"Beim Scannen wird nichts verändert."},
    {u"sources.privacyReassurance", u"Ihre Medien bleiben auf diesem Mac."},

    {u"org.copyTitle", u"Kopieren (empfohlen)"},
    {u"org.moveTitle", u"Verschieben"},

    {u"report.title", u"Organisation abgeschlossen"},
    {u"report.openInFinder", u"Im Finder öffnen"},
};

} // namespace

constinit const LanguageTables german{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
