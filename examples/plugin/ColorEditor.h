#pragma once

#include <KlvExtender/KlvEditor.h>

#include <Inventor/sensors/SoFieldSensor.h>

class QLineEdit;
class SoSFColor;

/// Edits a colour field as the notation that web pages use: "#ff8800".
class ColorEditor : public KlvEditor
{
    Q_OBJECT

public:
    ColorEditor();
    ~ColorEditor() override;

    void load() override;
    void activate() override;
    void deactivate() override;
    void unload() override;

private:
    SoSFColor* field() const;
    void commit();
    void refresh();

    QLineEdit* m_edit = nullptr; ///< is m_widget
    SoFieldSensor m_sensor;
};
