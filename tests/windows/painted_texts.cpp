// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/painted_texts.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

namespace velorin::testing {

namespace {

/// Keeps the texts and paints nothing.
class TextEngine : public QPaintEngine {
 public:
  explicit TextEngine(std::vector<PaintedText>& found) : QPaintEngine(AllFeatures), found_(found) {}

  bool begin(QPaintDevice*) override {
    setActive(true);
    return true;
  }
  bool end() override {
    setActive(false);
    return true;
  }
  Type type() const override { return User; }
  void updateState(const QPaintEngineState& state) override {
    if (state.state().testFlag(DirtyTransform)) transform_ = state.transform();
  }
  void drawTextItem(const QPointF& at, const QTextItem& item) override {
    if (item.text().trimmed().isEmpty()) return;
    const QRectF ink = QFontMetricsF(item.font()).tightBoundingRect(item.text()).translated(at);
    found_.push_back({item.text(), transform_.mapRect(ink)});
  }
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
  void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
  void drawRects(const QRectF*, int) override {}
  void drawRects(const QRect*, int) override {}
  void drawLines(const QLineF*, int) override {}
  void drawLines(const QLine*, int) override {}
  void drawEllipse(const QRectF&) override {}
  void drawEllipse(const QRect&) override {}
  void drawPoints(const QPointF*, int) override {}
  void drawPoints(const QPoint*, int) override {}

 private:
  std::vector<PaintedText>& found_;
  QTransform transform_;
};

/// As large as the widget, with its resolution.
class TextSheet : public QPaintDevice {
 public:
  TextSheet(const QWidget& widget, std::vector<PaintedText>& found) : widget_(widget), engine_(found) {}

  QPaintEngine* paintEngine() const override { return &engine_; }

 protected:
  int metric(PaintDeviceMetric which) const override {
    switch (which) {
      case PdmWidth:
        return widget_.width();
      case PdmHeight:
        return widget_.height();
      case PdmDpiX:
      case PdmPhysicalDpiX:
        return widget_.logicalDpiX();
      case PdmDpiY:
      case PdmPhysicalDpiY:
        return widget_.logicalDpiY();
      case PdmDepth:
        return 32;
      case PdmDevicePixelRatio:
        return 1;
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
      default:
        return QPaintDevice::metric(which);
    }
  }

 private:
  const QWidget& widget_;
  mutable TextEngine engine_;
};

}  // namespace

std::vector<PaintedText> painted_texts(QWidget& widget) {
  std::vector<PaintedText> found;
  TextSheet sheet(widget, found);
  widget.render(&sheet, QPoint(), QRegion(), QWidget::RenderFlags());
  return found;
}

}  // namespace velorin::testing
