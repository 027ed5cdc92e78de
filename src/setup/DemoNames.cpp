#include "setup/DemoNames.h"

namespace setup::demo {
namespace {

const char* const kGirls[] = {
    "Uxía",  "Antía",  "Noa",    "Lucía",  "Sabela", "Iria",    "Aldara",  "Xiana",   "Alba",   "Martina",
    "Sara",  "Paula",  "Nerea",  "Laura",  "Icía",   "Ainhoa",  "Lara",    "Candela", "Olalla", "Maía",
    "Irene", "Sofía",  "Andrea", "Ángela", "Inés",   "Daniela", "Valeria", "Nuria",   "Zoe",    "Lúa",
    "Carme", "Begoña", "Eva",    "Rocío",  "Mariña", "Noemí",   "Raquel",  "Érica",   "Tamara", "Anxela",
};

const char* const kBoys[] = {
    "Brais",  "Xoán",   "Iñaki",  "Martiño", "Hugo",   "Iago",    "Anxo",   "Roi",    "Xabier", "Mateo",
    "Daniel", "Pablo",  "Adrián", "Diego",   "Álvaro", "Óscar",   "Lois",   "Breixo", "Uxío",   "Xurxo",
    "Antón",  "Manuel", "Sergio", "Rubén",   "Tomás",  "Nicolás", "Marcos", "Íker",   "Andrés", "Iván",
    "Ramón",  "Gael",   "Íñigo",  "Xián",    "Fermín", "Joaquín", "Aarón",  "Bieito", "Telmo",  "Simón",
};

const char* const kSurnames[] = {
    "Fernández", "Núñez",     "Souto",    "Castiñeira", "Iglesias", "Ferreño",  "García",  "López",   "Rodríguez",
    "Pérez",     "Vázquez",   "Castro",   "Otero",      "Rey",      "Martínez", "Varela",  "Seoane",  "Fraga",
    "Lorenzo",   "Domínguez", "Piñeiro",  "Outeiro",    "Carballo", "Barreiro", "Gómez",   "Sánchez", "Muñiz",
    "Míguez",    "Calviño",   "Rivas",    "Pazos",      "Regueiro", "Ferreiro", "Freire",  "Cancela", "Mariño",
    "Teixeira",  "Brea",      "Loureiro", "Añón",       "Bermúdez", "Muñoz",    "Cortizo", "Noya",    "Peña",
    "Sotelo",    "Boullosa",  "Vilariño", "Pardiñas",   "Ríos",     "Acuña",    "Álvarez", "Méndez",  "Ibáñez",
    "Quintela",  "Búa",       "da Silva", "de Castro",  "Fariña",   "Ordóñez",
};

const char* const kFathers[] = {
    "Xosé",         "Manuel", "José Luis", "Antonio",  "Francisco", "Xoán Carlos", "Ramón", "Luis",   "Alberto",
    "Miguel Ángel", "Javier", "Roberto",   "Fernando", "Juan",      "Jesús",       "Óscar", "Víctor", "Carlos",
    "Pedro",        "Rubén",  "Santiago",  "Andrés",   "Xurxo",     "Marcos",      "Íñigo",
};

const char* const kMothers[] = {
    "María José", "Carmen",   "Rosa",   "Begoña",      "Marta",  "Susana",   "Ana Belén", "Montserrat", "Pilar",
    "Beatriz",    "Mercedes", "Isabel", "Raquel",      "Sonia",  "Patricia", "Cristina",  "Silvia",     "Iria",
    "Lorena",     "Verónica", "Ánxela", "María Jesús", "Noelia", "Uxía",     "Nieves",
};

const char* const kTeachers[] = {
    "Marta Seoane Rey",    "Xosé Manuel Pazos Brea", "Helen Carter Souto", "Carlos Outeiro Fraga",
    "Begoña Muñiz Castro", "Rubén Ferreiro Añón",    "Ánxela Rivas Noya",
};

const Town kTowns[] = {
    {"Santiago de Compostela", "15701", "A Coruña"},
    {"Santiago de Compostela", "15702", "A Coruña"},
    {"Santiago de Compostela", "15703", "A Coruña"},
    {"Santiago de Compostela", "15704", "A Coruña"},
    {"Santiago de Compostela", "15705", "A Coruña"},
    {"Santiago de Compostela", "15706", "A Coruña"},
    {"Ames", "15220", "A Coruña"},
    {"Ames", "15895", "A Coruña"},
    {"Teo", "15883", "A Coruña"},
    {"Boqueixón", "15881", "A Coruña"},
    {"Oroso", "15688", "A Coruña"},
    {"Padrón", "15900", "A Coruña"},
    {"A Estrada", "36680", "Pontevedra"},
    {"Silleda", "36540", "Pontevedra"},
};

const char* const kStreets[] = {
    "Rúa do Vilar",
    "Rúa Nova",
    "Avenida de Lugo",
    "Rúa de San Pedro",
    "Praza de Vigo",
    "Rúa da Rosa",
    "Avenida de Rosalía de Castro",
    "Rúa do Hórreo",
    "Rúa Montero Ríos",
    "Rúa das Galeras",
    "Rúa de Santiago de Chile",
    "Rúa da Pastora",
    "Camiño do Monte",
    "Lugar de Figueiras",
    "Rúa da Igrexa",
    "Avenida da Coruña",
    "Rúa do Castiñeiro",
    "Rúa de Ourense",
    "Praza do Toural",
    "Rúa da Fonte",
};

const char* const kStudentRemarks[] = {
    "Alerxia ao marisco",
    "Alerxia á penicilina",
    "Necesita reforzo en lectura",
    "Dislexia: máis tempo nos exames",
    "Diabetes tipo 1: avisar á familia se se atopa mal",
    "Exento de Educación Física ata xaneiro",
    "Chega no transporte escolar",
    "Vive cos avós; falar coa avoa",
    "Asma: leva inhalador na mochila",
    "Xoga ao balonmán federado: faltas os venres",
    "Estuda piano no conservatorio",
    "Apoio de Pedagoxía Terapéutica dúas horas á semana",
};

const Subject kSubjects[] = {
    {"Matemáticas",
     "MAT",
     "Libro de texto e caderno de exercicios",
     0xCFE2F3,
     {"Números naturais", "Números enteiros", "Fraccións", "Números decimais", "Proporcionalidade", "Álxebra",
      "Ecuacións", "Xeometría", "Estatística"},
     {"Orzamento dunha excursión", "Planos da aula a escala", "Enquisa aos compañeiros"}},
    {"Lingua galega e literatura",
     "LGL",
     nullptr,
     0xD9EAD3,
     {"A comunicación", "O substantivo", "A narración", "O adxectivo", "O verbo", "A descrición", "A poesía",
      "O teatro", "Rosalía de Castro"},
     {"Radio escolar", "Revista da aula", "Recital de poemas"}},
    {"Lingua castelá e literatura",
     "LCL",
     "Plan lector: un libro por trimestre",
     0xFCE5CD,
     {"El texto", "El sustantivo", "La narración", "El verbo", "La descripción", "Los géneros literarios", "La lírica",
      "El teatro", "El Quijote"},
     {"Cuentacuentos", "Periódico de clase", "Club de lectura"}},
    {"Inglés",
     "ING",
     "Auxiliar de conversa os xoves",
     0xFFF2CC,
     {"Friends", "School life", "Food", "Sports", "Animals", "Holidays", "Cities", "The past", "Future plans"},
     {"My town guide", "Class survey", "Short film"}},
    {"Xeografía e Historia",
     "XEH",
     nullptr,
     0xEAD1DC,
     {"O relevo", "Os climas", "A poboación", "A Prehistoria", "Exipto", "Grecia", "Roma", "A Idade Media",
      "O Camiño de Santiago"},
     {"Mapa do concello", "Liña do tempo", "Ruta polo casco vello"}},
    {"Bioloxía e Xeoloxía",
     "BXE",
     "Laboratorio os mércores",
     0xD0E0E3,
     {"O universo", "A Terra", "A atmosfera", "A hidrosfera", "Os seres vivos", "As plantas", "Os animais",
      "Os ecosistemas", "A saúde"},
     {"Horta escolar", "Maqueta do sistema solar", "Estudo do río Sar"}},
};

// By task type: exam, piece of work, notebook, project.
const char* const kExamRemarks[] = {"Temas do libro e apuntamentos", "Con preguntas de resposta curta",
                                    "Inclúe os exercicios de clase"};
const char* const kWorkRemarks[] = {"Por parellas", "Entrega na aula virtual", "Entrega en papel"};
const char* const kNotebookRemarks[] = {"Revisión na aula", "Recoller na última semana"};
const char* const kProjectRemarks[] = {"Grupos de catro", "Con exposición oral na aula", "Material na aula virtual"};

const char* const kMarkHigh[] = {"Moi bo traballo", "Excelente presentación", "Parabéns!", "Moi completo"};
const char* const kMarkMiddle[] = {"Entrega tarde", "Coidar a presentación", "Revisar a ortografía",
                                   "Mellorou respecto ao anterior"};
const char* const kMarkLow[] = {"Debe repasar o tema", "Entrega incompleta", "Falta a parte final", "Vir falar comigo"};

const char* const kEvaluationRemarks[] = {
    "Bo traballo na avaliación",   "Debe traballar máis na casa", "Mellora no último mes",
    "Moitas faltas de asistencia", "Participa moito na clase",    "Ten que entregar as tarefas a tempo",
};

const char* const kDiary[] = {
    "%1: explicación", "%1: exercicios",           "%1: corrección dos deberes",          "%1: traballo en grupo",
    "%1: repaso",      "%1: lectura e comentario", "%1: dúbidas e exercicios de reforzo",
};

const Rubric kRubrics[] = {
    {{"1", "2", "3", ""},
     {"Investigación", "Presentación", "Exposición oral", ""},
     {"Busca e selecciona información de varias fontes", "Orde, limpeza e deseño",
      "Claridade, vocabulario e uso do tempo", ""}},
    {{"1", "2", "3", "4"},
     {"Planificación", "Contido", "Traballo en equipo", "Produto final"},
     {"Reparte as tarefas e cumpre os prazos", "Rigor e corrección do contido", "Colabora e respecta as quendas",
      "Calidade e orixinalidade do resultado"}},
    {{"1", "2", "3", "4"},
     {"Comprensión", "Procedemento", "Resultados", "Presentación"},
     {"Entende o que se pide", "Explica os pasos seguidos", "Os resultados son correctos", "Letra clara e orde"}},
    {{"1", "2", "3", ""},
     {"Contido", "Expresión", "Fontes", ""},
     {"Responde a todas as preguntas", "Redacción clara e sen erros", "Cita as fontes consultadas", ""}},
};

const Incident kIncidents[] = {
    {"Retrasos reiterados", "Chega tarde á primeira hora tres días nesta semana.",
     "Falouse coa familia; compromiso de puntualidade."},
    {"Non trae o material", "Vén sen o libro nin o caderno de forma habitual.",
     "Anotouse na axenda e avisouse á familia."},
    {"Uso do móbil na clase", "Usa o móbil durante a explicación e non o garda cando se lle pide.",
     "Retívose o móbil ata o final da xornada, segundo as normas do centro."},
    {"Discusión no recreo", "Discusión forte cun compañeiro no patio; houbo empuxóns.",
     "Mediación co departamento de orientación; pedíronse desculpas."},
    {"Falta de respecto", "Contesta de mala maneira ao profesor diante da clase.",
     "Entrevista co titor e coa familia."},
    {"Deberes sen facer", "Leva dúas semanas sen entregar as tarefas de casa.",
     "Plan de seguimento semanal coa familia."},
    {"Saída da aula sen permiso", "Sae da aula no cambio de clase e non volve ata a seguinte hora.",
     "Parte comunicado á xefatura de estudos."},
    {"Copia nun exame", "Usa unha chuleta durante o exame.", "Repetición do exame noutra data, con aviso á familia."},
    {"Dano no material", "Rompe unha cadeira do laboratorio mentres xoga.", "A familia repón o material."},
    {"Molesta aos compañeiros", "Interrompe a clase con ruídos e comentarios.",
     "Cambio de sitio na aula e seguimento durante dúas semanas."},
};

const Appointment kAppointments[] = {
    {"Entrevista coa familia de %1", "Presentación do curso e hábitos de estudo na casa.",
     "A familia colabora; revisarán a axenda cada día."},
    {"Seguimento das faltas de %1", "Faltas de asistencia sen xustificar nas últimas semanas.",
     "Xustifican parte das faltas; compromiso de avisar sempre."},
    {"Rendemento de %1", "Materias con dificultades e plan de traballo na casa.",
     "Acórdase un horario de estudo e unha nova reunión en tres semanas."},
    {"Reunión coa nai de %1", "Problemas de relación co grupo no recreo.",
     "Derívase a orientación; seguimento mensual."},
    {"Entrevista con %1", "Organización do tempo e uso da axenda.", "Leva a axenda ao día desde a reunión."},
    {"Reunión co pai de %1", "Baixada do rendemento en matemáticas e inglés.",
     "Reforzo na biblioteca dúas tardes á semana."},
};

const TutoringSubject kTutoring[] = {
    {"LCG", "Lingua castelá e galega", 2, "Dúas mestras: castelá e galega"},
    {"MAT", "Matemáticas", 0, nullptr},
    {"ING", "Inglés", 3, "Desdobre os xoves"},
    {"XEO", "Xeografía e Historia", 4, nullptr},
    {"BIO", "Bioloxía e Xeoloxía", 5, nullptr},
    {"EF", "Educación Física", -1, "Traer roupa deportiva martes e venres"},
};

} // namespace

Words girlNames()
{
    return kGirls;
}
Words boyNames()
{
    return kBoys;
}
Words surnames()
{
    return kSurnames;
}
Words fatherNames()
{
    return kFathers;
}
Words motherNames()
{
    return kMothers;
}
Words teacherNames()
{
    return kTeachers;
}
std::span<const Town> towns()
{
    return kTowns;
}
Words streets()
{
    return kStreets;
}
Words studentRemarks()
{
    return kStudentRemarks;
}
std::span<const Subject> subjects()
{
    return kSubjects;
}
Words taskRemarks(int type)
{
    switch (type) {
    case 0:
        return kExamRemarks;
    case 1:
        return kWorkRemarks;
    case 2:
        return kNotebookRemarks;
    default:
        return kProjectRemarks;
    }
}
Words markRemarksHigh()
{
    return kMarkHigh;
}
Words markRemarksMiddle()
{
    return kMarkMiddle;
}
Words markRemarksLow()
{
    return kMarkLow;
}
Words evaluationRemarks()
{
    return kEvaluationRemarks;
}
Words diaryActivities()
{
    return kDiary;
}
std::span<const Rubric> rubrics()
{
    return kRubrics;
}
std::span<const Incident> incidents()
{
    return kIncidents;
}
std::span<const Appointment> appointments()
{
    return kAppointments;
}
std::span<const TutoringSubject> tutoringSubjects()
{
    return kTutoring;
}

} // namespace setup::demo
