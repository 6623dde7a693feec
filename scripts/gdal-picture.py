#!/usr/bin/python3
"""scripts/gdal-picture.py HOST FILE OUT: what "zelconvert plot" and QGIS draw of a field file, beside each other.

QGIS (python3-qgis) draws the GeoPackage that ogr2ogr makes of the file, with names from its fields. Two
pictures of one file should be alike. docs/pictures/mill-creek-gdal.png is made so.
"""

import os
import pathlib
import subprocess
import sys
import tempfile

os.environ["QT_QPA_PLATFORM"] = "offscreen"
os.environ["OGR_SQLITE_JOURNAL"] = "DELETE"

from qgis.core import (QgsApplication, QgsMapRendererParallelJob, QgsMapSettings, QgsPalLayerSettings,  # noqa: E402
                       QgsRectangle, QgsTextFormat, QgsVectorLayer, QgsVectorLayerSimpleLabeling)
from qgis.PyQt.QtCore import QSize, Qt  # noqa: E402
from qgis.PyQt.QtGui import QColor, QImage, QPainter  # noqa: E402

HEIGHT = 640  # pixels
LAYERS = {"points": ("#b22222", 2.0), "setups": ("#000000", 3.0), "shots": ("#999999", 0.25),
          "vectors": ("#3355cc", 0.25), "roads": ("#cc7722", 0.7)}


def styled_layers(package):
    for name, (colour, size) in LAYERS.items():
        layer = QgsVectorLayer(f"{package}|layername={name}", name, "ogr")
        if not layer.isValid():
            continue
        if layer.fields().indexOf("deleted") >= 0:
            layer.setSubsetString("deleted = 0")
        symbol = layer.renderer().symbol()
        symbol.setColor(QColor(colour))
        (symbol.setSize if name in ("points", "setups") else symbol.setWidth)(size)
        if name == "points":
            labels, text = QgsPalLayerSettings(), QgsTextFormat()
            labels.fieldName = "name"
            text.setSize(7)
            labels.setFormat(text)
            layer.setLabeling(QgsVectorLayerSimpleLabeling(labels))
            layer.setLabelsEnabled(True)
        yield layer


def map_of(layers):
    extent = QgsRectangle()
    for layer in layers:
        extent.combineExtentWith(layer.extent())
    extent.scale(1.15)
    settings = QgsMapSettings()
    settings.setLayers(layers)
    settings.setDestinationCrs(layers[0].crs())
    settings.setOutputSize(QSize(HEIGHT, HEIGHT))
    settings.setExtent(extent)
    job = QgsMapRendererParallelJob(settings)
    job.start()
    job.waitForFinished()
    return job.renderedImage()


def main():
    host, file, out = sys.argv[1:]
    application = QgsApplication([], False)
    application.initQgis()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        subprocess.check_call([host, "plot", "--quiet", file, folder / "plan.png"])
        subprocess.check_call(["ogr2ogr", "-f", "GPKG", folder / "file.gpkg", file])
        plan = QImage(str(folder / "plan.png")).scaledToHeight(HEIGHT, Qt.SmoothTransformation)
        both = QImage(plan.width() + HEIGHT, HEIGHT, QImage.Format_RGB32)
        painter = QPainter(both)
        painter.drawImage(0, 0, plan)
        painter.drawImage(plan.width(), 0, map_of(list(styled_layers(folder / "file.gpkg"))))
        painter.end()
        both.save(out)
    application.exitQgis()


if __name__ == "__main__":
    main()
