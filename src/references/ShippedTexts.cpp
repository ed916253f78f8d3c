// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/ShippedTexts.h"

#include "base/CodePage.h"

#include <algorithm>

namespace tavrel {

namespace {

// One that ends with a blank goes on with a name or a number, which stays.
constexpr struct
{
    std::string_view english;
    std::string_view french;
} shippedTexts[] = {
    {"Stock level: ", "Niveau d'origine : "},
    {"All levels", "Tous les niveaux"},
    {"Reserved: test level ", "Réservé : niveau de test "},
    {"Reserved: demo level ", "Réservé : niveau de démonstration "},
    {"Reserved: exercise level ", "Réservé : niveau d'exercice "},
    {"Reserved: template level ", "Réservé : niveau modèle "},
    {"Reserved: shared object set ", "Réservé : jeu d'objets commun "},
    {"Animals", "Animaux"},
    {"Undead", "Morts-vivants"},
    {"Human characters", "Personnages humains"},
    {"Gods and monsters", "Dieux et monstres"},
    {"Vehicles", "Véhicules"},
    {"Traps", "Pièges"},
    {"Doors", "Portes"},
    {"Switches", "Interrupteurs"},
    {"Moving and machinery", "Objets mobiles et machines"},
    {"Effects and surroundings", "Effets et environnement"},
};

} // namespace

BilingualText shippedText(std::string_view text)
{
    const auto* const found = std::ranges::find_if(shippedTexts, [text](const auto& shipped) {
        return shipped.english.ends_with(' ') ? text.starts_with(shipped.english) : text == shipped.english;
    });
    BilingualText result = BilingualText::same(utf8FromCodePage(text));
    if (found != std::end(shippedTexts)) {
        result.french.replace(0, found->english.size(), found->french);
    }
    return result;
}

} // namespace tavrel
