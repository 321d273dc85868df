#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"Terminé"},
    {u"brand.slogan", u"Vos médias. Votre archive."},
    {u"header.appearance.system", u"Système"},
    {u"header.appearance.light", u"Clair"},
    {u"header.appearance.dark", u"Sombre"},

    {u"performance.title", u"Remarque sur les performances"},
    {u"performance.message",
     u"LUMEO. peut solliciter fortement le stockage pendant l’analyse, la copie, le déplacement, le hachage "
     u"et la vérification.\n\n"
     u"• Les disques externes peuvent rester occupés\n"
     u"• Le Finder et votre Mac peuvent sembler plus lents\n"
     u"• Les disques mécaniques peuvent faire plus de bruit\n"
     u"• Les autres applications qui sollicitent beaucoup le disque peuvent ralentir\n"
     u"• L’utilisation de la mémoire et du cache disque peut augmenter temporairement"},
    {u"performance.expected",
     u"Ce comportement est normal lors d’un traitement intensif de médias et n’indique aucun problème."},
    {u"performance.inline", u"LUMEO. va utiliser activement la bande passante du stockage ainsi que la "
                            u"mémoire et le cache du système pendant cette opération. Votre Mac ou votre "
                            u"disque externe peut sembler temporairement plus lent."},

    {u"last.title", u"Dernière opération terminée"},
    {u"last.filesProcessed", u"Fichiers"},
    {u"last.dataTransferred", u"Transféré"},
    {u"last.verified", u"Vérifiés"},
    {u"last.skipped", u"Ignorés"},
    {u"last.errors", u"Erreurs"},
    {u"last.duration", u"Durée"},
    {u"last.operationType", u"Opération"},
    {u"last.destination", u"Destination"},
    {u"last.completedAt", u"Terminée le"},

    {u"operation.copy", u"Copie"},
    {u"operation.move", u"Déplacement"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"Sources"},
    {u"step.scanResults", u"Résultats de l’analyse"},
    {u"step.organization", u"Organisation"},
    {u"step.preview", u"Aperçu"},
    {u"step.processing", u"Traitement"},
    {u"step.report", u"Rapport"},

    {u"sources.heroTitle", u"Organisez vos médias"},
    {u"sources.heroSubtitle",
     u"Transformez des années de photos et de vidéos éparpillées en une archive claire et structurée."},
    {u"sources.dropZoneTitle", u"Déposer ici des dossiers ou des disques"},
    {u"sources.chooseFolder", u"Choisir un dossier…"},
    {u"sources.scanMedia", u"Analyser les médias"},
    {u"sources.safetyReassurance", u"Rien ne sera modifié pendant l’analyse."},
    {u"sources.privacyReassurance", u"Vos médias restent sur ce Mac."},

    {u"org.copyTitle", u"Copier (recommandé)"},
    {u"org.moveTitle", u"Déplacer"},

    {u"report.title", u"Organisation terminée"},
    {u"report.openInFinder", u"Ouvrir dans le Finder"},
};

} // namespace

constinit const LanguageTables french{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
