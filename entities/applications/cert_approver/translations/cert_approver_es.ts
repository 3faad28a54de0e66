<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_MX" sourcelanguage="en_US">
<context>
  <name>CertApproverWindowView</name>
  <message>
    <source>$Add certificate$</source>
    <translation>Agregar certificado</translation>
  </message>
  <message>
    <source>$Description$</source>
    <translation>Para conectarse al servidor de conexión, debe instalar el certificado correspondiente en el sistema.</translation>
  </message>
  <message>
    <source>$AddressLabel$</source>
    <translation>IP o nombre del servidor
al que se está conectando</translation>
  </message>
  <message>
    <source>$Issuer$</source>
    <translation>Nombre del emisor</translation>
  </message>
  <message>
    <source>$Subject$</source>
    <translation>Nombre del sujeto</translation>
  </message>
  <message>
    <source>$Valid$</source>
    <translation>Validez del certificado</translation>
  </message>
  <message>
    <source>$Fingerprint$</source>
    <translation>Huella digital del certificado</translation>
  </message>
  <message>
    <source>$Warning$</source>
    <translation>La instalación de un certificado desconocido podría crear un riesgo para la seguridad de la información. Verifique la huella digital antes de agregar el certificado. Usted asume el riesgo de seguridad de la información para su estación de trabajo y su organización si decide no verificar la autenticidad del certificado con la huella digital.</translation>
  </message>
  <message>
    <source>$Approve$</source>
    <translation>Agregar certificado</translation>
  </message>
  <message>
    <source>$Cancel$</source>
    <translation>Cancelar</translation>
  </message>
</context>
<context>
  <name>cert_approver::ui::CertApproverWindowView</name>
  <message>
    <source>dd.MM.yyyy</source>
    <translation>dd.MM.yyyy</translation>
  </message>
  <message>
    <source>hh:mm</source>
    <translation>hh:mm</translation>
  </message>
</context>
</TS>
