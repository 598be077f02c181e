#include "Models/NodeIcon.h"

#include "Models/DrawnIcon.h"

#include <Inventor/VRMLnodes/SoVRMLNodes.h>
#include <Inventor/nodekits/SoBaseKit.h>
#include <Inventor/nodekits/SoNodeKitListPart.h>
#include <Inventor/nodes/SoNodes.h>

#include <QPainter>

#include <algorithm>
#include <unordered_map>

namespace {

void drawGroup(QPainter& painter)
{
    painter.drawRect(QRectF(2.5, 2.5, 5, 4));
    painter.drawRect(QRectF(8.5, 9.5, 5, 4));
    painter.drawPolyline(QPolygonF({{5, 6.5}, {5, 11.5}, {8.5, 11.5}}));
}

void drawSwitch(QPainter& painter)
{
    painter.drawPolyline(QPolygonF({{1.5, 8}, {5.5, 8}, {12, 3.5}}));
    painter.drawEllipse(QPointF(13, 8), 1.5, 1.5);
    painter.drawEllipse(QPointF(13, 13), 1.5, 1.5);
    painter.drawEllipse(QPointF(13, 3), 1.5, 1.5);
}

void drawKit(QPainter& painter)
{
    painter.drawRect(QRectF(2.5, 5.5, 11, 8));
    painter.drawPolyline(QPolygonF({{6, 5.5}, {6, 3}, {10, 3}, {10, 5.5}}));
    painter.drawLine(QPointF(2.5, 9.5), QPointF(13.5, 9.5));
}

void drawShape(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{8, 1.5}, {13.5, 4.5}, {13.5, 11.5}, {8, 14.5}, {2.5, 11.5}, {2.5, 4.5}}));
    painter.drawPolyline(QPolygonF({{2.5, 4.5}, {8, 7.5}, {13.5, 4.5}}));
    painter.drawLine(QPointF(8, 7.5), QPointF(8, 14.5));
}

void drawLight(QPainter& painter)
{
    painter.drawEllipse(QPointF(8, 8), 3, 3);
    for (int i = 0; i < 8; ++i) {
        painter.save();
        painter.translate(8, 8);
        painter.rotate(45 * i);
        painter.drawLine(QPointF(5, 0), QPointF(7, 0));
        painter.restore();
    }
}

void drawCamera(QPainter& painter)
{
    painter.drawRect(QRectF(1.5, 4.5, 8.5, 7.5));
    painter.drawPolygon(QPolygonF({{10, 7}, {14.5, 4.5}, {14.5, 12}, {10, 9.5}}));
}

void drawTransform(QPainter& painter)
{
    painter.drawLine(QPointF(4, 12), QPointF(4, 2));
    painter.drawLine(QPointF(4, 12), QPointF(14, 12));
    painter.drawPolyline(QPolygonF({{2, 4}, {4, 2}, {6, 4}}));
    painter.drawPolyline(QPolygonF({{12, 10}, {14, 12}, {12, 14}}));
    painter.drawLine(QPointF(4, 12), QPointF(9.5, 6.5));
}

void drawAppearance(QPainter& painter)
{
    painter.drawEllipse(QPointF(8, 8), 6, 6);
    painter.drawChord(QRectF(2, 2, 12, 12), 45 * 16, 180 * 16);
}

void drawTexture(QPainter& painter)
{
    const QBrush fill(painter.pen().color());
    painter.drawRect(QRectF(2.5, 2.5, 11, 11));
    painter.fillRect(QRectF(2.5, 2.5, 5.5, 5.5), fill);
    painter.fillRect(QRectF(8, 8, 5.5, 5.5), fill);
}

void drawData(QPainter& painter)
{
    painter.setBrush(painter.pen().color());
    for (const QPointF& point : {QPointF(3.5, 12), QPointF(6.5, 5), QPointF(10, 10), QPointF(13, 3.5)})
        painter.drawEllipse(point, 1.2, 1.2);
}

void drawOther(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{8, 3.5}, {12.5, 8}, {8, 12.5}, {3.5, 8}}));
}

struct Family
{
    SoType (*type)();
    DrawnIcon::Drawing drawing;
};

/// The first family that a node's type derives from is its own.
constexpr Family families[] = {
    {SoBaseKit::getClassTypeId, drawKit},
    {SoSwitch::getClassTypeId, drawSwitch},
    {SoVRMLSwitch::getClassTypeId, drawSwitch},
    {SoLOD::getClassTypeId, drawSwitch},
    {SoVRMLLOD::getClassTypeId, drawSwitch},
    {SoVRMLTransform::getClassTypeId, drawTransform},
    {SoGroup::getClassTypeId, drawGroup},
    {SoVRMLParent::getClassTypeId, drawGroup},
    {SoNodeKitListPart::getClassTypeId, drawGroup},
    {SoFile::getClassTypeId, drawGroup},
    {SoVRMLInline::getClassTypeId, drawGroup},
    {SoShape::getClassTypeId, drawShape},
    {SoVRMLShape::getClassTypeId, drawShape},
    {SoLight::getClassTypeId, drawLight},
    {SoVRMLLight::getClassTypeId, drawLight},
    {SoCamera::getClassTypeId, drawCamera},
    {SoVRMLViewpoint::getClassTypeId, drawCamera},
    {SoTransformation::getClassTypeId, drawTransform},
    {SoMaterial::getClassTypeId, drawAppearance},
    {SoBaseColor::getClassTypeId, drawAppearance},
    {SoPackedColor::getClassTypeId, drawAppearance},
    {SoDrawStyle::getClassTypeId, drawAppearance},
    {SoLightModel::getClassTypeId, drawAppearance},
    {SoVRMLAppearance::getClassTypeId, drawAppearance},
    {SoVRMLMaterial::getClassTypeId, drawAppearance},
    {SoTexture::getClassTypeId, drawTexture},
    {SoVRMLTexture::getClassTypeId, drawTexture},
    {SoCoordinate3::getClassTypeId, drawData},
    {SoCoordinate4::getClassTypeId, drawData},
    {SoNormal::getClassTypeId, drawData},
    {SoTextureCoordinate2::getClassTypeId, drawData},
    {SoVertexProperty::getClassTypeId, drawData},
    {SoVertexAttribute::getClassTypeId, drawData},
    {SoVRMLCoordinate::getClassTypeId, drawData},
    {SoVRMLNormal::getClassTypeId, drawData},
    {SoVRMLTextureCoordinate::getClassTypeId, drawData},
    {SoNode::getClassTypeId, drawOther},
};

} // namespace

QIcon NodeIcon::forNode(const SoNode* node)
{
    static std::unordered_map<int, QIcon> icons;
    const SoType type = node->getTypeId();
    QIcon& icon = icons[type.getKey()];
    if (icon.isNull()) {
        const auto* family =
            std::find_if(std::begin(families), std::end(families),
                         [type](const Family& each) { return type.isDerivedFrom(each.type()); });
        icon = DrawnIcon::of(family->drawing);
    }
    return icon;
}
