<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>TreeModel</name>
    <message>
        <source>Single Pixel</source>
        <translation>Einzelpixel</translation>
    </message>
    <message>
        <source>Pixel Column</source>
        <translation>Pixelspalte</translation>
    </message>
    <message>
        <source>Pixel Row</source>
        <translation>Pixelzeile</translation>
    </message>
    <message>
        <source>Cluster</source>
        <translation>Cluster</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
</context>
</TS>
