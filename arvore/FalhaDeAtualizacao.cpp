// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/FalhaDeAtualizacao.h"

#include "plataforma/Exception.h"

#include <new>

namespace Sibrel
{

QString XMLInvalido()
{
    return QStringLiteral("XML em formato inválido!");
}

QString MemoriaInsuficiente()
{
    return QStringLiteral("Memória insuficiente!");
}

TFalhaDeAtualizacao FalhaDe(const std::exception_ptr &Erro)
{
    TFalhaDeAtualizacao Falha;
    try {
        std::rethrow_exception(Erro);
    } catch (const Exception &E) {
        Falha.Mensagem = E.Message;
        Falha.Detalhe = E.Detalhe;
    } catch (const std::bad_alloc &) {
        Falha.Mensagem = MemoriaInsuficiente();
    } catch (const std::exception &E) {
        Falha.Mensagem = QString::fromLocal8Bit(E.what());
    } catch (...) {
        Falha.Mensagem = QStringLiteral("Erro desconhecido");
    }
    return Falha;
}

} // namespace Sibrel
