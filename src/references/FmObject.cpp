// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/FmObject.h"

#include "base/Titles.h"
#include "references/ShippedTexts.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <set>

namespace tavrel {

FmObject::FmObject(QWidget* parent, const SoundCatalogue& catalogue, const ColourScheme& colours,
                   Language language)
    : TitledWindow(parent), m_catalogue(catalogue), m_types(makeFixedPitchList("LiType")),
      m_objects(makeFixedPitchList("LiOBJ")), m_sounds(makeFixedPitchList("LiSID")),
      m_ok(makeButton("CdOK", Glyph::Accept)), m_cancel(makeButton("CdCancel", Glyph::Close))
{
    setObjectName("FmObject");
    setWindowModality(Qt::ApplicationModal);
    layOut(colours);
    showCaptions(language);
    connect(m_types, &QListWidget::currentRowChanged, this, &FmObject::fillObjects);
    connect(m_objects, &QListWidget::itemSelectionChanged, this, &FmObject::fillSounds);
    connect(m_objects, &QListWidget::itemDoubleClicked, this, &FmObject::choose);
    connect(m_ok, &QPushButton::clicked, this, &FmObject::choose);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_ok->setDefault(true);
    fillTypes(language);
}

void FmObject::layOut(const ColourScheme& colours)
{
    constexpr int margin = 2 * controlGap;
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * controlGap);
    grid->setVerticalSpacing(controlGap);
    const struct
    {
        const char* heading;
        QListWidget* list;
    } columns[] = {{"LbType", m_types}, {"LbOBJ", m_objects}, {"LbSID", m_sounds}};
    int column = 0;
    for (const auto& [heading, list] : columns) {
        grid->addWidget(makeHeading(heading), 0, column);
        grid->addWidget(list, 1, column);
        paintWith(*list, colours.slots[ColourScheme::mainWindowSlot]);
        ++column;
    }
    m_objects->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_sounds->setSelectionMode(QAbstractItemView::NoSelection);
    m_sounds->setFocusPolicy(Qt::NoFocus);
    auto* const buttons = rowOf({m_ok, m_cancel});
    buttons->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(2 * controlGap);
    content().addLayout(grid, 1);
    content().addLayout(buttons);
    resize(760, 460);
}

void FmObject::showCaptions(Language language)
{
    const Caption captions[] = {
        {"LbType", {"Object type", "Type d'objet"}, {}},
        {"LbOBJ", {"Object name", "Nom d'objet"}, {}},
        {"LbSID", {"Sound ID", "ID sons"}, {}},
        {"LiType", {}, {"Object type", "Type d'objet"}},
        {"LiOBJ", {}, {"Object name (Ctrl: several)", "Nom d'objet (Ctrl : plusieurs)"}},
        {"LiSID", {}, {"Sounds of the objects", "Sons des objets"}},
        {"CdOK",
         {"Select", "Sélectionner"},
         {"Work on the sounds of these objects", "Travailler sur les sons de ces objets"}},
        {"CdCancel", {"Cancel", "Annuler"}, {"Close without a choice", "Fermer sans choisir"}},
    };
    tavrel::showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(titles::selectObject, language));
}

void FmObject::fillTypes(Language language)
{
    for (const SoundObject& object : m_catalogue.objects()) {
        if (std::ranges::find(m_typesShown, object.type) == m_typesShown.end()) {
            m_typesShown.push_back(object.type);
            m_types->addItem(inLanguage(shippedText(object.type), language));
        }
    }
    m_types->setCurrentRow(0);
    fillObjects();
}

std::string FmObject::selectedType() const
{
    const int row = m_types->currentRow();
    return row < 0 ? std::string() : m_typesShown.at(static_cast<std::size_t>(row));
}

void FmObject::fillObjects()
{
    m_objects->clear();
    const std::string type = selectedType();
    for (const SoundObject& object : m_catalogue.objects()) {
        if (object.type == type) {
            m_objects->addItem(fromCodePage(object.name));
        }
    }
    m_objects->setCurrentRow(0);
    fillSounds();
}

std::vector<const SoundObject*> FmObject::selectedObjects() const
{
    std::vector<const SoundObject*> objects;
    const std::string type = selectedType();
    for (const QListWidgetItem* const item : m_objects->selectedItems()) {
        const std::string name = toCodePage(item->text());
        const auto found = std::ranges::find_if(m_catalogue.objects(), [&](const SoundObject& object) {
            return object.name == name && object.type == type;
        });
        if (found != m_catalogue.objects().end()) {
            objects.push_back(&*found);
        }
    }
    return objects;
}

void FmObject::fillSounds()
{
    m_sounds->clear();
    const std::vector<const SoundObject*> objects = selectedObjects();
    m_ok->setEnabled(!objects.empty());
    std::set<std::size_t> sounds; // objects share some
    for (const SoundObject* const object : objects) {
        for (const std::size_t number : object->sounds) {
            if (number < m_catalogue.size() && sounds.insert(number).second) {
                m_sounds->addItem(fromCodePage(m_catalogue.listEntry(number)));
            }
        }
    }
}

void FmObject::choose()
{
    m_chosenNames.clear();
    for (const SoundObject* const object : selectedObjects()) {
        m_chosenNames.push_back(object->name);
    }
    if (!m_chosenNames.empty()) {
        accept();
    }
}

} // namespace tavrel
