#include "tools/qt/Frm_Legal.h"

#include <QAbstractButton>
#include <QMessageBox>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

bool Legal_IsEnglish(const QString& disclaimer) { return disclaimer.startsWith("This"); }

QString Legal_Title() { return QString("%1 - WARNING !").arg(Program_Name()); }

QString Legal_Text(const QString& disclaimer) {
  if (Legal_IsEnglish(disclaimer)) {
    return QString::fromUtf8(
        "This program computes the elastic critical moment of lateral-torsional buckling of a "
        "steel beam. It is an aid to the engineer's judgement and does not replace it.\n\n"
        "The results depend entirely on the data given: the section, the restraints, the "
        "levels of the loads and the units. The user remains responsible for checking the data "
        "and the results, and for their use in any design.\n\n"
        "The program is provided as it is, without any warranty. The authors accept no "
        "liability for any damage arising from its use. Press OK to accept these terms, "
        "Cancel to leave the program.");
  }
  return QString::fromUtf8(
      "Ce programme calcule le moment critique élastique de déversement d'une poutre en acier. "
      "C'est une aide au jugement de l'ingénieur ; il ne le remplace pas.\n\n"
      "Les résultats dépendent entièrement des données : la section, les maintiens, les "
      "niveaux d'application des charges et les unités. L'utilisateur reste responsable de la "
      "vérification des données et des résultats, et de leur emploi dans tout dimensionnement.\n\n"
      "Le programme est fourni tel quel, sans aucune garantie. Les auteurs déclinent toute "
      "responsabilité pour tout dommage résultant de son utilisation. Appuyez sur OK pour "
      "accepter ces conditions, sur Annuler pour quitter le programme.");
}

bool Show_LegalWarning(QWidget* parent, const QString& disclaimer) {
  QMessageBox box(QMessageBox::Warning, Legal_Title(), Legal_Text(disclaimer),
                  QMessageBox::Ok | QMessageBox::Cancel, parent);
  box.setDefaultButton(QMessageBox::Ok);
  if (!Legal_IsEnglish(disclaimer)) box.button(QMessageBox::Cancel)->setText("Annuler");
  return box.exec() == QMessageBox::Ok;
}

}  // namespace zarvek
