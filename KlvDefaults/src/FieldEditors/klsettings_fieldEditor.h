#pragma once

#include <QMap>
#include <QString>

#include <cstring>

/// One named layout constant.
struct FieldEditorSetting
{
    const char* name;
    int value;
};

/// The layout constants that all field editors share, in pixels; "labelPointSize" is in points. Ended by a
/// null name. Callers pass the names letter for letter, odd spellings included.
static const FieldEditorSetting fieldEditorSettings[] = {
    {"frameLineWidth", 0},
    {"labelLineWidth", 0},
    {"labelPointSize", 10},
    {"labelHeight", 20},
    {"buttonWidth", 20},
    {"buttonHeight", 20},
    {"PopupFrameWidth", 260},
    {"PopupFrameHeight", 100},
    {"PopupLayoutMargin", 6},
    {"PopupLayoutSpacing", 8},
    {"SFieldLayoutMargin", 4},
    {"SFieldLayoutSpacing", 6},
    {"SFieldEditLayoutMargin", 0},
    {"SFieldEditLayoutSpacing", 0},
    {"SFButtonLayoutMargin", 2},
    {"SFButtonLayoutSpacing", 0},
    {"SFEditionAreaLayMargin", 0},
    {"SFEditionAreaLaySpacing", 2},
    {"SFComponentHeight", 18},
    {"SFBoolWidth", 16},
    {"SFColorSpacing", 6},
    {"SFColorMargin", 0},
    {"SFColorInterSpacing", 2},
    {"SFColorDispWidth", 20},
    {"SFVecLineHeight", 16},
    {"SFVecLabelHeight", 14},
    {"SF4fBoxVSpacing", 4},
    {"SF4fBoxHSpacing", 4},
    {"SF4fBoxHMargin", 2},
    {"SF3fBoxVSpacing", 4},
    {"SF3fBoxHSpacing", 20},
    {"SF3fBoxHMargin", 2},
    {"SF2BoxHSpacing", 25},
    {"SF2BoxHMargin", 2},
    {"SF2BoxVSpacing", 4},
    {"MFGlobalLayoutSpacing", 2},
    {"MFGlobalLayoutMarging", 6},
    {"MFGlobalButtonsLayoutMargin", 0},
    {"MFGlobalButtonsLayoutSpacing", 5},
    {"MFButtonLayoutMargin", 0},
    {"MFButtonLayoutSpacing", 0},
    {"MFAccessWidth", 60},
    {"MFManageAccessSpacerWidth", 0},
    {"MFManageAccessSpacerHeight", 0},
    {"MFAccessMoveSpacerHeight", 0},
    {"MFAccessMoveSpacerWidth", 0},
    {"MFTableMinHeightWin", 43},
    {"MFTableMinHeightUnix", 46},
    {nullptr, 0},
};

/// The layout constant of that name, 0 when there is none. Names are case-sensitive. Every source file that
/// includes this header has its own cache of the constants it asked for.
[[maybe_unused]] static int klsettings_fieldEditor(const QString& name)
{
    static QMap<QString, int> dict;
    const auto known = dict.constFind(name);
    if (known != dict.constEnd())
        return *known;
    const QByteArray latin1 = name.toLatin1();
    for (const FieldEditorSetting* setting = fieldEditorSettings; setting->name; ++setting) {
        if (std::strcmp(latin1.constData(), setting->name) == 0) {
            dict.insert(name, setting->value);
            return setting->value;
        }
    }
    return 0;
}
