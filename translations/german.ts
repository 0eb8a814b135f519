<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>&lt;span&gt;Version: %1&lt;br/&gt;Zlt API version: %3&lt;/span&gt;</source>
        <translation>&lt;span&gt;Version: %1&lt;br/&gt;Version der Zlt-API: %3&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>AsynchronousCameraController</name>
    <message>
        <source>Camera can&apos;t be opened, 
 because could be in use by another application, or isn&apos;t on the list</source>
        <translation>Die Kamera kann nicht geöffnet werden, 
 weil eine andere Anwendung sie benutzt oder weil sie nicht in der Liste steht</translation>
    </message>
    <message>
        <source>Cannot open camera stream</source>
        <translation>Der Bildstrom der Kamera kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Camera is in use by another application</source>
        <translation>Die Kamera wird von einer anderen Anwendung benutzt</translation>
    </message>
</context>
<context>
    <name>BottomPanel</name>
    <message>
        <source>&lt;b&gt;Start and Stop (press P)&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Start or stop image acquisition (P)&lt;/span&gt;</source>
        <translation>&lt;b&gt;Start und Stopp (Taste P)&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Bildaufnahme starten oder anhalten (P)&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Overlay&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Switch pixel overlay on or off&lt;/span&gt;</source>
        <translation>&lt;b&gt;Einblendung&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Markierung der Pixel ein- oder ausblenden&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Overview&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Show or hide the overview window&lt;/span&gt;</source>
        <translation>&lt;b&gt;Übersicht&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Übersichtsfenster ein- oder ausblenden&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Scale&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Reset zoom&lt;/span&gt;</source>
        <translation>&lt;b&gt;Maßstab&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Zoom zurücksetzen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Zoom In (press +[numpad])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Zoom In (+[numpad])&lt;/span&gt;</source>
        <translation>&lt;b&gt;Vergrößern (Taste +[Ziffernblock])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Vergrößern (+[Ziffernblock])&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Zoom Out (press -[numpad])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Zoom Out (-[numpad])&lt;/span&gt;</source>
        <translation>&lt;b&gt;Verkleinern (Taste -[Ziffernblock])&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Verkleinern (-[Ziffernblock])&lt;/span&gt;</translation>
    </message>
</context>
<context>
    <name>ConfirmDialog</name>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CustomGraphicsView</name>
    <message>
        <source>Save current Pixel</source>
        <translation>Aktuelles Pixel speichern</translation>
    </message>
    <message>
        <source>Reset View</source>
        <translation>Ansicht zurücksetzen</translation>
    </message>
    <message>
        <source>x: %1
y: %2</source>
        <translation>x: %1
y: %2</translation>
    </message>
</context>
<context>
    <name>DpcMarker</name>
    <message>
        <source>DPC Unsupported</source>
        <translation>Ohne DPC</translation>
    </message>
</context>
<context>
    <name>LeftPanel</name>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>Refresh list</source>
        <translation>Liste aktualisieren</translation>
    </message>
    <message>
        <source>&lt;b&gt;Refresh List&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Refresh camera list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Liste aktualisieren&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Kameraliste neu einlesen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Information&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Please select a camera&lt;/span&gt;</source>
        <translation>&lt;b&gt;Information&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Bitte wählen Sie eine Kamera aus&lt;/span&gt;</translation>
    </message>
</context>
<context>
    <name>LoaderDialog</name>
    <message>
        <source>Please wait...</source>
        <translation>Bitte warten...</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Loading</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>&lt;b&gt;Import&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Load pixel list from an .xml file &lt;/span&gt;</source>
        <translation>&lt;b&gt;Importieren&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Pixelliste aus einer .xml-Datei laden &lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Camera List&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;View camera list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Kameraliste&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Kameraliste anzeigen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Camera Settings&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;View camera settings&lt;/span&gt;</source>
        <translation>&lt;b&gt;Kameraeinstellungen&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Kameraeinstellungen anzeigen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Grab ( Press 2 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Move the visible part of the image&lt;/span&gt;</source>
        <translation>&lt;b&gt;Verschieben ( Taste 2 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Den sichtbaren Bildausschnitt verschieben&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Mouse Add ( Press 1 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Add pixels to the pixel list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Mit der Maus hinzufügen ( Taste 1 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Pixel in die Pixelliste aufnehmen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Mouse Rubber ( Press 3 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Remove selected pixels from list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Radierer ( Taste 3 )&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Ausgewählte Pixel aus der Liste entfernen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Pixel List&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;View pixel list&lt;/span&gt;</source>
        <translation>&lt;b&gt;Pixelliste&lt;/b&gt; &lt;br/&gt; &lt;span style=&apos;color:gray;&apos;&gt;Pixelliste anzeigen&lt;/span&gt;</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Radieren</translation>
    </message>
    <message>
        <source>Grab</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Pixel list</source>
        <translation>Pixelliste</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Über Qt</translation>
    </message>
    <message>
        <source> %1 %</source>
        <translation> %1 %</translation>
    </message>
    <message>
        <source>Stopping image acquisition...</source>
        <translation>Bildaufnahme wird angehalten...</translation>
    </message>
    <message>
        <source>Saving pixels to .xml...</source>
        <translation>Pixel werden als .xml gespeichert...</translation>
    </message>
    <message>
        <source>Starting image acquisition...</source>
        <translation>Bildaufnahme wird gestartet...</translation>
    </message>
    <message>
        <source>Loading info</source>
        <translation>Ladeinformation</translation>
    </message>
    <message>
        <source>List is empty!</source>
        <translation>Die Liste ist leer!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>.xml</source>
        <translation>.xml</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>Datei speichern</translation>
    </message>
    <message>
        <source>Reading pixels from .xml...</source>
        <translation>Pixel werden aus .xml gelesen...</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>To load .xml file
choose a camera first</source>
        <translation>Um eine .xml-Datei zu laden,
wählen Sie zuerst eine Kamera aus</translation>
    </message>
    <message>
        <source>File is corrupted</source>
        <translation>Die Datei ist beschädigt</translation>
    </message>
    <message>
        <source>Camera Error</source>
        <translation>Kamerafehler</translation>
    </message>
    <message>
        <source>Please select a camera</source>
        <translation>Bitte wählen Sie eine Kamera aus</translation>
    </message>
</context>
<context>
    <name>MessageDialog</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>OnboardDialog</name>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>In the camera list panel on the left, click the camera you want to open.</source>
        <translation>Klicken Sie in der Kameraliste links auf die Kamera, die Sie öffnen möchten.</translation>
    </message>
    <message>
        <source>Select Tool (press 1)</source>
        <translation>Auswahlwerkzeug (Taste 1)</translation>
    </message>
    <message>
        <source>Grab Tool (press 2)</source>
        <translation>Verschiebewerkzeug (Taste 2)</translation>
    </message>
    <message>
        <source>The Grab tool moves the visible image section.</source>
        <translation>Mit dem Werkzeug „Verschieben“ bewegen Sie den sichtbaren Bildausschnitt.</translation>
    </message>
    <message>
        <source>Erase Tool (press 3)</source>
        <translation>Radierwerkzeug (Taste 3)</translation>
    </message>
    <message>
        <source>Pixel list</source>
        <translation>Pixelliste</translation>
    </message>
    <message>
        <source>The Pixel list on the right automatically reads defective pixels from the user correction set in your camera. They are listed in green.</source>
        <translation>Die Pixelliste rechts liest die defekten Pixel selbsttätig aus dem Benutzer-Korrektursatz Ihrer Kamera. Sie sind grün aufgeführt.</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Erste Schritte</translation>
    </message>
</context>
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
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
</context>
<context>
    <name>WelcomeDialog</name>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Welcome to
Lorvane</source>
        <translation>Willkommen bei
Lorvane</translation>
    </message>
    <message>
        <source>Let us show you how to get started with
Lorvane.</source>
        <translation>Wir zeigen Ihnen die ersten Schritte mit
Lorvane.</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>No thanks</source>
        <translation>Nein, danke</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
</TS>
