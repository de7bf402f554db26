<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>Kleiner Bildschirm: Tasten nur %1 mm groß.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Bitte eine Zahl eingeben.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>Das ist keine Zahl.</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>Nur ganze Zahlen sind möglich.</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>Nachkommastellen: höchstens %1.</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>Zu viele Ziffern.</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>Zu klein: der kleinste Wert ist %1.</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>Zu groß: der größte Wert ist %1.</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>Zu lang: höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>Kein Wert ist möglich: Die Grenzen sind %1 bis %2.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>Alt: %1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>Länge: bis %1</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>Min: %1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>Max: %1</translation>
    </message>
    <message>
        <source>CLR</source>
        <comment>key that clears the whole entry, three letters</comment>
        <translation>CLR</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbruch</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>Gewählte Gruppe</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>Gewähltes Rezept</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>Ein Register braucht einen Typ, zum Beispiel LW.</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>%1 %2 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Beobachten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
</TS>
