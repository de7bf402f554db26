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
    <name>PanelSession</name>
    <message>
        <source>Changes that are not saved were not sent.</source>
        <translation>Nicht gespeicherte Änderungen wurden nicht gesendet.</translation>
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
    <name>RecipeTransfer</name>
    <message>
        <source>%1 Nothing was sent.</source>
        <translation>%1 Es wurde nichts gesendet.</translation>
    </message>
    <message>
        <source>Recipes are being added or deleted; try again in a moment.</source>
        <translation>Gerade werden Rezepte angelegt oder gelöscht; bitte gleich noch einmal versuchen.</translation>
    </message>
    <message>
        <source>No plug-in that is loaded can load recipes.</source>
        <translation>Kein geladenes Plug-in kann Rezepte laden.</translation>
    </message>
    <message>
        <source>No recipe is selected.</source>
        <translation>Es ist kein Rezept gewählt.</translation>
    </message>
    <message>
        <source>It is not known of which group the recipe is; tap the recipe.</source>
        <translation>Es ist nicht bekannt, zu welcher Gruppe das Rezept gehört; bitte das Rezept antippen.</translation>
    </message>
    <message>
        <source>Group %1 cannot be read from the recipe file.</source>
        <translation>Die Gruppe %1 kann nicht aus der Rezeptdatei gelesen werden.</translation>
    </message>
    <message>
        <source>Group %1 has no items.</source>
        <translation>Die Gruppe %1 hat keine Zeilen.</translation>
    </message>
    <message>
        <source>Group %1 has no recipe %2.</source>
        <translation>Die Gruppe %1 hat kein Rezept %2.</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>Rezept %1</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>%1 has no value.</source>
        <translation>%1 hat keinen Wert.</translation>
    </message>
    <message>
        <source>The recipe file holds &quot;%1&quot; more than once.</source>
        <translation>Die Rezeptdatei enthält „%1“ mehrfach.</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not known.</source>
        <translation>%1 hat den Datentyp %2, der nicht bekannt ist.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number.</source>
        <translation>%1: „%2“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>%1: %2 has too many decimals.</source>
        <translation>%1: %2 hat zu viele Nachkommastellen.</translation>
    </message>
    <message>
        <source>%1: %2 does not fit into its register.</source>
        <translation>%1: %2 passt nicht in das Register.</translation>
    </message>
    <message>
        <source>%1: the text &quot;%2&quot; is longer than %3 bytes.</source>
        <translation>%1: Der Text „%2“ ist länger als %3 Byte.</translation>
    </message>
    <message>
        <source>%1 has no room among the registers of the recipe.</source>
        <translation>%1 hat keinen Platz in den Registern des Rezepts.</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>Meldeadresse</translation>
    </message>
    <message>
        <source>%1 has no register address.</source>
        <translation>%1 hat keine Registeradresse.</translation>
    </message>
    <message>
        <source>%1: there is no link to &quot;%2&quot;.</source>
        <translation>%1: Es gibt keine Verbindung zu „%2“.</translation>
    </message>
    <message>
        <source>The link to &quot;%1&quot; is down.</source>
        <translation>Die Verbindung zu „%1“ ist unterbrochen.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no register %3 %4.</source>
        <translation>%1: „%2“ hat kein Register %3 %4.</translation>
    </message>
    <message>
        <source>%1 and %2 share the register %3 %4.</source>
        <translation>%1 und %2 belegen dasselbe Register %3 %4.</translation>
    </message>
    <message>
        <source>The controller does not answer.</source>
        <translation>Die Steuerung antwortet nicht.</translation>
    </message>
    <message>
        <source>Sent to the controller: %1</source>
        <translation>An die Steuerung gesendet: %1</translation>
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
<context>
    <name>TransferBox</name>
    <message>
        <source>Send to controller (F9)</source>
        <translation>An Steuerung senden (F9)</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <translation>Verbindung zu %1</translation>
    </message>
</context>
</TS>
