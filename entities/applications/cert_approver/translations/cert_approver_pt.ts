<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en_US">
<context>
  <name>CertApproverWindowView</name>
  <message>
    <source>$Add certificate$</source>
    <translation>Adicionar certificado</translation>
  </message>
  <message>
    <source>$Description$</source>
    <translation>Para se conectar ao servidor de conexão, você deve instalar o certificado correspondente no sistema.</translation>
  </message>
  <message>
    <source>$AddressLabel$</source>
    <translation>Endereço IP ou nome do servidor
ao qual você está se conectando</translation>
  </message>
  <message>
    <source>$Issuer$</source>
    <translation>Nome do emissor</translation>
  </message>
  <message>
    <source>$Subject$</source>
    <translation>Nome do assunto</translation>
  </message>
  <message>
    <source>$Valid$</source>
    <translation>Validade do certificado</translation>
  </message>
  <message>
    <source>$Fingerprint$</source>
    <translation>Impressão digital do certificado</translation>
  </message>
  <message>
    <source>$Warning$</source>
    <translation>A instalação de um certificado desconhecido pode ser um risco à segurança das informações. Verifique a impressão digital antes de adicionar o certificado. Você assume o risco à segurança das informações da sua estação de trabalho e da organização ao não verificar a autenticidade da impressão digital do certificado.</translation>
  </message>
  <message>
    <source>$Approve$</source>
    <translation>Adicionar certificado</translation>
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
