<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>Petit écran : touches de %1 mm seulement.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Entrez un nombre.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>Ce n’est pas un nombre.</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>Nombres entiers uniquement.</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>Décimales : %1 au maximum.</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>Trop de chiffres.</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>Trop petit : le minimum est %1.</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>Trop grand : le maximum est %1.</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>Trop long : %1 caractères au maximum.</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>Aucune valeur possible : limites de %1 à %2.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>Ancien : %1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>Longueur : %1 max.</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>Min : %1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>Max : %1</translation>
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
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>Groupe sélectionné</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>Recette sélectionnée</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>Un registre doit avoir un type, par exemple LW.</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>Impossible d’écrire dans %1 %2.</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Surveiller</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
</context>
</TS>
