<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>Pantalla pequeña: teclas de solo %1 mm.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Introduzca un número.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>No es un número.</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>Solo se admiten números enteros.</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>Decimales: %1 como máximo.</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>Demasiadas cifras.</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>Demasiado pequeño: el mínimo es %1.</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>Demasiado grande: el máximo es %1.</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>Demasiado largo: máximo %1 caracteres.</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>Ningún valor es posible: los límites son %1 a %2.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>Anterior: %1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>Longitud: hasta %1</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>Mín: %1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>Máx: %1</translation>
    </message>
    <message>
        <source>CLR</source>
        <comment>key that clears the whole entry, three letters</comment>
        <translation>CLR</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>PanelSession</name>
    <message>
        <source>Changes that are not saved were not sent.</source>
        <translation>Los cambios sin guardar no se han enviado.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>RecipeTransfer</name>
    <message>
        <source>%1 Nothing was sent.</source>
        <translation>%1 No se ha enviado nada.</translation>
    </message>
    <message>
        <source>Recipes are being added or deleted; try again in a moment.</source>
        <translation>Se están añadiendo o borrando recetas; inténtelo de nuevo en un momento.</translation>
    </message>
    <message>
        <source>No plug-in that is loaded can load recipes.</source>
        <translation>Ningún complemento cargado puede leer recetas.</translation>
    </message>
    <message>
        <source>No recipe is selected.</source>
        <translation>No hay ninguna receta seleccionada.</translation>
    </message>
    <message>
        <source>It is not known of which group the recipe is; tap the recipe.</source>
        <translation>No se sabe a qué grupo pertenece la receta; toque la receta.</translation>
    </message>
    <message>
        <source>Group %1 cannot be read from the recipe file.</source>
        <translation>No se puede leer el grupo %1 del archivo de recetas.</translation>
    </message>
    <message>
        <source>Group %1 has no items.</source>
        <translation>El grupo %1 no tiene elementos.</translation>
    </message>
    <message>
        <source>Group %1 has no recipe %2.</source>
        <translation>El grupo %1 no tiene la receta %2.</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>Receta %1</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>Elemento %1</translation>
    </message>
    <message>
        <source>%1 has no value.</source>
        <translation>%1 no tiene valor.</translation>
    </message>
    <message>
        <source>The recipe file holds &quot;%1&quot; more than once.</source>
        <translation>El archivo de recetas contiene «%1» más de una vez.</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not known.</source>
        <translation>%1 tiene el tipo de datos %2, que es desconocido.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number.</source>
        <translation>%1: «%2» no es un número.</translation>
    </message>
    <message>
        <source>%1: %2 has too many decimals.</source>
        <translation>%1: %2 tiene demasiados decimales.</translation>
    </message>
    <message>
        <source>%1: %2 does not fit into its register.</source>
        <translation>%1: %2 no cabe en su registro.</translation>
    </message>
    <message>
        <source>%1: the text &quot;%2&quot; is longer than %3 bytes.</source>
        <translation>%1: el texto «%2» tiene más de %3 bytes.</translation>
    </message>
    <message>
        <source>%1 has no room among the registers of the recipe.</source>
        <translation>%1 no tiene sitio entre los registros de la receta.</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>Notificación</translation>
    </message>
    <message>
        <source>%1 has no register address.</source>
        <translation>%1 no tiene dirección de registro.</translation>
    </message>
    <message>
        <source>%1: there is no link to &quot;%2&quot;.</source>
        <translation>%1: no hay enlace con «%2».</translation>
    </message>
    <message>
        <source>The link to &quot;%1&quot; is down.</source>
        <translation>El enlace con «%1» está interrumpido.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no register %3 %4.</source>
        <translation>%1: «%2» no tiene el registro %3 %4.</translation>
    </message>
    <message>
        <source>%1 and %2 share the register %3 %4.</source>
        <translation>%1 y %2 comparten el registro %3 %4.</translation>
    </message>
    <message>
        <source>The controller does not answer.</source>
        <translation>El controlador no responde.</translation>
    </message>
    <message>
        <source>Sent to the controller: %1</source>
        <translation>Enviado al controlador: %1</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>Grupo seleccionado</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>Receta seleccionada</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>Un registro necesita un tipo, por ejemplo LW.</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>No se puede escribir en %1 %2.</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Observar</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
</context>
<context>
    <name>TransferBox</name>
    <message>
        <source>Send to controller (F9)</source>
        <translation>Enviar al controlador (F9)</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <translation>Enlace con %1</translation>
    </message>
</context>
</TS>
